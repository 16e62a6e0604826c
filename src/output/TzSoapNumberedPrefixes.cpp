// SPDX-License-Identifier: MIT
#include "output/TzSoapNumberedPrefixes.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr std::string_view Digits = "0123456789";

/// Where more than one number can end a prefix ("a12" is "a1" and 2, too), longer ones than this
/// are not looked at: it would take as many declarations to get there.
constexpr std::size_t LongestPart = 9;

/// `number` minus one; `number` is not 0.
TzCString decrement(TzCString number) {
    auto digit = number.rbegin();
    for (; *digit == '0'; ++digit) {
        *digit = '9';
    }
    --*digit;
    if (number.size() > 1 && number.front() == '0') {
        number.erase(0, 1);
    }
    return number;
}

} // namespace

TzCString TzSoapNumberedPrefixes::increment(std::string_view number) {
    TzCString digits(number.substr(std::min(number.find_first_not_of('0'), number.size())));
    auto digit = digits.rbegin();
    for (; digit != digits.rend() && *digit == '9'; ++digit) {
        *digit = '0';
    }
    if (digit == digits.rend()) {
        return digits.insert(0, 1, '1');
    }
    ++*digit;
    return digits;
}

/// Calls `action` with each base and number that `prefix` can be made of.
template <typename Action>
void TzSoapNumberedPrefixes::forEachNumber(const TzCString& prefix, Action action) {
    const std::string_view text = prefix;
    const std::size_t all = text.size() - (text.find_last_not_of(Digits) + 1);
    for (std::size_t size = 1; size <= all; ++size) {
        const std::size_t from = text.size() - size;
        if (text[from] != '0' && (size <= LongestPart || size == all)) {
            action(text.substr(0, from), TzCString(text.substr(from)));
        }
    }
}

void TzSoapNumberedPrefixes::follow(const TzSoapDeclarations& declared, std::size_t unchanged) {
    // Out of this object meanwhile, so that what could not be finished is gone.
    TzSoapNumberedPrefixes work;
    std::swap(work, *this);
    while (work.seen_.size() > unchanged) {
        work.pop();
    }
    while (work.seen_.size() < declared.size()) {
        const auto [prefix, uri] = declared[work.seen_.size()];
        work.push(TzXmlNamespace(prefix, uri));
    }
    std::swap(work, *this);
}

void TzSoapNumberedPrefixes::push(const TzXmlNamespace& declared) {
    const std::size_t position = seen_.size();
    seen_.push_back(declared);
    forEachNumber(declared.getPrefix(), [&](std::string_view text, const TzCString& number) {
        Base& base = bases_[TzCString(text)];
        std::vector<std::size_t>& positions = base.positions[number];
        if (positions.empty()) {
            base.addToRuns(number);
        } else {
            base.unbind(number, seen_[positions.back()]);
        }
        positions.push_back(position);
        base.bind(number, declared);
    });
}

void TzSoapNumberedPrefixes::pop() {
    const TzXmlNamespace gone = seen_.back();
    forEachNumber(gone.getPrefix(), [&](std::string_view text, const TzCString& number) {
        const auto base = bases_.find(text);
        const auto positions = base->second.positions.find(number);
        base->second.unbind(number, gone);
        positions->second.pop_back();
        if (!positions->second.empty()) {
            base->second.bind(number, seen_[positions->second.back()]);
            return;
        }
        base->second.positions.erase(positions);
        base->second.removeFromRuns(number);
        if (base->second.positions.empty()) {
            bases_.erase(base);
        }
    });
    seen_.pop_back();
}

TzCString TzSoapNumberedPrefixes::lowest(std::string_view base, std::string_view first,
                                         std::string_view uri) const {
    TzCString free(first);
    const auto found = bases_.find(base);
    if (found == bases_.end()) {
        return free;
    }
    const Base& known = found->second;
    const auto after = known.runs.upper_bound(free);
    if (after != known.runs.begin() && !ByValue()(std::prev(after)->second, free)) {
        free = increment(std::prev(after)->second);
    }
    const auto same = known.byUri.find(uri);
    if (same != known.byUri.end()) {
        const auto bound = same->second.lower_bound(TzCString(first));
        if (bound != same->second.end() && ByValue()(*bound, free)) {
            return *bound;
        }
    }
    return free;
}

void TzSoapNumberedPrefixes::Base::bind(const TzCString& number, const TzXmlNamespace& declared) {
    byUri[declared].insert(number);
}

void TzSoapNumberedPrefixes::Base::unbind(const TzCString& number, const TzXmlNamespace& declared) {
    const auto numbers = byUri.find(declared);
    numbers->second.erase(number);
    if (numbers->second.empty()) {
        byUri.erase(numbers);
    }
}

void TzSoapNumberedPrefixes::Base::addToRuns(const TzCString& number) {
    auto next = runs.upper_bound(number);
    TzCString last = number;
    if (next != runs.end() && next->first == increment(number)) {
        last = next->second;
        next = runs.erase(next);
    }
    if (next != runs.begin() && increment(std::prev(next)->second) == number) {
        std::prev(next)->second = last;
    } else {
        runs.emplace(number, last);
    }
}

void TzSoapNumberedPrefixes::Base::removeFromRuns(const TzCString& number) {
    const auto run = std::prev(runs.upper_bound(number));
    const TzCString last = run->second;
    if (run->first == number) {
        runs.erase(run);
    } else {
        run->second = decrement(number);
    }
    if (last != number) {
        runs.emplace(increment(number), last);
    }
}
