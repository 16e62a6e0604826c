// SPDX-License-Identifier: MIT
#include "model/TzSoapLasting.h"

// After the platform's, so that its objects go before those they are made from.
[[gnu::init_priority(102)]] constinit TzLastingList tzSoapObjects;
