// Strong, weak and lasting references.
#include "objc/strong.h"
#include "support/phone.h"

namespace test {
namespace {

class Ownership : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }
    static objc::strong<NSObject> object() { return objc::adopt(NSObject::class_send<"new", NSObject*>()); }
    static NSUInteger count_of(NSObject* object) { return object->send<"retainCount", NSUInteger>(); }
    Phone phone;
};

TEST_F(Ownership, AdoptingTakesTheCallersReference) { EXPECT_EQ(count_of(object()), 1u); }

TEST_F(Ownership, CopiesShareAndMovesDoNot) {
    auto first = object();
    objc::strong<NSObject> second = first;
    EXPECT_EQ(count_of(first), 2u);
    objc::strong<NSObject> third = std::move(second);
    EXPECT_EQ(count_of(first), 2u);
    EXPECT_EQ(second.get(), nullptr);
    third = nullptr;
    EXPECT_EQ(count_of(first), 1u);
}

TEST_F(Ownership, AssigningItselfKeepsTheObject) {
    auto first = object();
    first = *&first;
    EXPECT_EQ(count_of(first), 1u);
}

TEST_F(Ownership, AutoreleasedLivesUntilThePoolGoes) {
    objc::weak<NSObject> witness;
    {
        objc::AutoreleasePool pool;
        NSObject* lent = object().autoreleased();
        witness = lent;
        EXPECT_EQ(witness.get().get(), lent);
    }
    EXPECT_EQ(witness.get().get(), nullptr);
}

TEST_F(Ownership, AWeakReferenceMayBeSetAgainAndToNothing) {
    objc::weak<NSObject> witness;
    auto first = object(), second = object();
    witness = first.get();
    witness = second.get();
    first = nullptr;
    EXPECT_EQ(witness.get().get(), second.get());
    witness = nullptr;
    EXPECT_EQ(witness.get().get(), nullptr);
}

TEST_F(Ownership, ALastingReferenceIsNeverReleased) {
    auto kept = object();
    {
        objc::lasting<NSObject> forever;
        forever = kept.get();
        EXPECT_EQ(count_of(kept), 2u);
    }
    EXPECT_EQ(count_of(kept), 2u);
    objc::adopt(kept.get());  // the reference that would have lasted
}

}  // namespace
}  // namespace test
