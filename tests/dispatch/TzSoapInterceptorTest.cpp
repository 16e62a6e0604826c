// SPDX-License-Identifier: MIT
#include "values/EnvelopeTesting.h"

#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapDispatcher.h>
#include <soap/TzSoapFaultError.h>
#include <soap/TzSoapSimpleType.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using Answer = std::optional<TzSoapMessage>;
using Next = TzSoapDispatcher::Next;

/// A service with the operation "ask", whose steps are noted.
class TzSoapInterceptor : public testing::Test {
protected:
    TzSoapInterceptor() {
        service_.add(TzXmlName("ask"), [this](const TzSoapType&) {
            steps_ += "operation ";
            return TzSoapSimpleType("answer", "yes", TzSoapType::xsdString, false);
        });
    }

    /// Adds an interceptor that notes `name` before and after the rest.
    void addNoting(const std::string& name) {
        service_.addInterceptor(
            [this, name](TzSoapMessage& request, const TzCString& action, const Next& next) {
                steps_ += name + "(" + action + ") ";
                Answer answer = next(request);
                const bool isFault = answer && answer->getSoapBody().hasSoapFault();
                steps_ += (isFault ? "fault-" : "") + name + ' ';
                return answer;
            });
    }
    std::string answerTo(const std::string& body, const std::string& header = "") {
        return service_
            .answer({"text/xml", "\"urn:a\"", envelope(TzSoapVersion::V1_1, body, header)})
            .body;
    }

    TzSoapDispatcher service_;
    std::string steps_;
};

} // namespace

TEST_F(TzSoapInterceptor, TheFirstOneStandsOutside) {
    addNoting("first");
    addNoting("second");
    EXPECT_NE(answerTo("<ask/>").find(">yes</answer>"), std::string::npos);
    EXPECT_EQ(steps_, "first(urn:a) second(urn:a) operation second first ");
}

TEST_F(TzSoapInterceptor, SeesFaultsOfTheDispatcher) {
    addNoting("all");
    EXPECT_NE(answerTo("<other/>").find("There is no operation"), std::string::npos);
    EXPECT_NE(answerTo("<ask/>", "<h e:mustUnderstand='1'/>").find("MustUnderstand"),
              std::string::npos);
    EXPECT_EQ(steps_, "all(urn:a) fault-all all(urn:a) fault-all ");
}

TEST_F(TzSoapInterceptor, MayAnswerItself) {
    service_.addInterceptor([](TzSoapMessage& request, const TzCString&, const Next&) -> Answer {
        TzSoapMessage answer(request.getVersion());
        answer.getSoapBody().appendEntry(TzSoapSimpleType("cached", 1, TzSoapType::xsdInt, false));
        return answer;
    });
    addNoting("inner");
    EXPECT_NE(answerTo("<ask/>").find("<cached"), std::string::npos);
    EXPECT_EQ(steps_, "");
}

TEST_F(TzSoapInterceptor, MayChangeRequestAndAnswer) {
    service_.addInterceptor([](TzSoapMessage& request, const TzCString&, const Next& next) {
        request.getSoapBody().clearEntries();
        request.getSoapBody().appendEntry(TzSoapCompositeType(TzXmlName("ask")));
        Answer answer = next(request);
        answer->getSoapHeader().appendHeaderEntry(
            TzSoapSimpleType("added", 1, TzSoapType::xsdInt, false), false);
        return answer;
    });
    const std::string text = answerTo("<other/>");
    EXPECT_NE(text.find(">yes</answer>"), std::string::npos) << text;
    EXPECT_NE(text.find("<added"), std::string::npos) << text;
}

TEST_F(TzSoapInterceptor, AFaultErrorIsAnswered) {
    addNoting("outer");
    service_.addInterceptor([](TzSoapMessage&, const TzCString&, const Next&) -> Answer {
        throw TzSoapFaultError(TzSoapVersion::Client, "not today");
    });
    EXPECT_NE(answerTo("<ask/>").find("not today"), std::string::npos);
    EXPECT_EQ(steps_, "outer(urn:a) fault-outer ");
}

TEST_F(TzSoapInterceptor, SeesThatAnOperationFailed) {
    addNoting("outer");
    addNoting("inner");
    service_.add(TzXmlName("ask"),
                 [](const TzSoapType&) -> TzSoapType { throw std::runtime_error("the secret"); });
    EXPECT_NE(answerTo("<ask/>").find("The operation failed"), std::string::npos);
    EXPECT_EQ(steps_, "outer(urn:a) inner(urn:a) fault-inner fault-outer ");
}

TEST_F(TzSoapInterceptor, SeesThatAnotherOneFailed) {
    addNoting("outer");
    service_.addInterceptor([](TzSoapMessage&, const TzCString&, const Next&) -> Answer {
        throw std::runtime_error("the secret");
    });
    EXPECT_NE(answerTo("<ask/>").find("The operation failed"), std::string::npos);
    EXPECT_EQ(steps_, "outer(urn:a) fault-outer ");
}

TEST_F(TzSoapInterceptor, OtherExceptionsAreHidden) {
    service_.addInterceptor([](TzSoapMessage&, const TzCString&, const Next&) -> Answer {
        throw std::runtime_error("the secret");
    });
    const std::string text = answerTo("<ask/>");
    EXPECT_NE(text.find("The operation failed"), std::string::npos) << text;
    EXPECT_EQ(text.find("secret"), std::string::npos) << text;
}
