// SPDX-License-Identifier: MIT
#include <soap/TzMessageBase.h>

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace {

class Note : public TzMessageBase {
public:
    explicit Note(TzCString text, bool* destroyed = nullptr)
        : text_(std::move(text)), destroyed_(destroyed) {}
    Note(const Note&) = default;
    Note& operator=(const Note&) = default;
    ~Note() override {
        if (destroyed_ != nullptr) {
            *destroyed_ = true;
        }
    }

    TzCString asString() const override { return text_; }
    TzCString getMessageType() const override { return "text/plain"; }

private:
    TzCString text_;
    bool* destroyed_;
};

} // namespace

TEST(TzMessageBase, IsABaseThatCannotBeMadeAlone) {
    EXPECT_TRUE(std::is_abstract_v<TzMessageBase>);
    EXPECT_FALSE(std::is_default_constructible_v<TzMessageBase>);
    EXPECT_TRUE(std::has_virtual_destructor_v<TzMessageBase>);
}

TEST(TzMessageBase, AnyKindOfMessageIsHandledThroughTheTwoOperations) {
    bool destroyed = false;
    std::unique_ptr<TzMessageBase> message = std::make_unique<Note>("hello", &destroyed);
    EXPECT_EQ(message->asString(), "hello");
    EXPECT_EQ(message->getMessageType(), "text/plain");
    message.reset();
    EXPECT_TRUE(destroyed);
}

TEST(TzMessageBase, AssigningTheBaseCopiesNothing) {
    Note first("first");
    const Note second("second");
    TzMessageBase& base = first;
    base = second;
    EXPECT_EQ(first.asString(), "first");
}
