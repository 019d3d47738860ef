// Zeroing weak references, and pools.
#include <atomic>
#include <thread>

#include "objc/class.h"
#include "support/phone.h"

/// Runs a given action when it is deallocated, and keeps a weak reference itself.
struct TSTMourner : objc::Interface<TSTMourner, "TSTMourner", NSObject> {
    static objc::strong<TSTMourner> make() { return class_send<"new", objc::strong<TSTMourner>>(); }
};

namespace {

int deaths = 0;
id* watched = nullptr;
bool cleared_at_death = false;
void (*at_death)(id) = nullptr;

struct Mourner : objc::Implements<Mourner, TSTMourner> {
    struct Ivars {
        objc::weak<NSObject> other;
    };
    void dealloc() {
        ++deaths;
        cleared_at_death = watched && !*watched;
        if (at_death) at_death(this);
    }
};

}  // namespace

using namespace objc::definition;
OBJC_CLASS(TSTMourner, NSObject, Mourner, ivar<"_other", &Mourner::Ivars::other>)

namespace test {
namespace {

class WeakReference : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        objc::register_classes([](auto) { return true; });
        deaths = 0;
        watched = nullptr;
        at_death = nullptr;
    }
    ~WeakReference() override { objc_destroyWeak(&variable); }

    Phone phone;
    id variable = nullptr;
};

TEST_F(WeakReference, IsNilOnceTheObjectIsGone) {
    auto object = TSTMourner::make();
    objc_initWeak(&variable, object);
    EXPECT_EQ(variable, object.get());
    object = nullptr;
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(variable, nullptr);
    EXPECT_EQ(objc_loadWeakRetained(&variable), nullptr);
}

TEST_F(WeakReference, IsNilAlreadyWhenDeallocRuns) {
    auto object = TSTMourner::make();
    objc_initWeak(&variable, object);
    watched = &variable;
    object = nullptr;
    EXPECT_TRUE(cleared_at_death);
}

extern "C" id objc_storeWeakOrNil(id* variable, id object);
extern "C" id objc_initWeakOrNil(id* variable, id object);

TEST_F(WeakReference, StoredDuringDeallocEndsTheProcess) {
    static id late = nullptr;
    constexpr const char* message = "an object of class TSTMourner is being deallocated: no weak reference";
    auto object = TSTMourner::make();
    at_death = [](id dying) { objc_storeWeak(&late, dying); };
    EXPECT_DEATH(object = nullptr, message);
    at_death = [](id dying) { objc_initWeak(&late, dying); };
    EXPECT_DEATH(object = nullptr, message);
    at_death = nullptr;
}

TEST_F(WeakReference, StoredDuringDeallocIsNilWhereThatIsAllowed) {
    static id stored, initialised;
    stored = nullptr;
    initialised = reinterpret_cast<id>(&stored);
    static auto other = TSTMourner::make();
    objc_storeWeak(&stored, other);
    at_death = [](id dying) {
        EXPECT_EQ(objc_storeWeakOrNil(&stored, dying), nullptr);
        EXPECT_EQ(objc_initWeakOrNil(&initialised, dying), nullptr);
    };
    TSTMourner::make();
    at_death = nullptr;
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(stored, nullptr);
    EXPECT_EQ(initialised, nullptr);
    EXPECT_EQ(objc_storeWeakOrNil(&stored, other), other.get()) << "of one that lives";
    other = nullptr;
    EXPECT_EQ(stored, nullptr);
}

TEST_F(WeakReference, MayBeStoredToAnotherObjectDuringDealloc) {
    static id late;
    static auto other = TSTMourner::make();
    at_death = [](id) { objc_storeWeak(&late, other); };
    TSTMourner::make();
    at_death = nullptr;
    EXPECT_EQ(late, other.get());
    other = nullptr;
    EXPECT_EQ(late, nullptr);
}

TEST_F(WeakReference, ToAnObjectAtADeadOnesPlaceIsFormed) {
    for (int round = 0; round < 100; ++round) {
        auto object = TSTMourner::make();
        objc_storeWeak(&variable, object);
        EXPECT_EQ(variable, object.get());
    }
}

TEST_F(WeakReference, DoesNotKeepTheObject) {
    auto object = TSTMourner::make();
    objc_initWeak(&variable, object);
    EXPECT_EQ((object->send<"retainCount", NSUInteger>()), 1u);
}

TEST_F(WeakReference, LoadsAnObjectThatTheCallerOwns) {
    auto object = TSTMourner::make();
    objc_initWeak(&variable, object);
    id loaded = objc_loadWeakRetained(&variable);
    object = nullptr;
    EXPECT_EQ(deaths, 0);
    objc_release(loaded);
    EXPECT_EQ(deaths, 1);
}

TEST_F(WeakReference, FollowsTheObjectStoredLast) {
    auto first = TSTMourner::make(), second = TSTMourner::make();
    objc_initWeak(&variable, first);
    EXPECT_EQ(objc_storeWeak(&variable, second), second.get());
    first = nullptr;
    EXPECT_EQ(variable, second.get());
    second = nullptr;
    EXPECT_EQ(variable, nullptr);
}

TEST_F(WeakReference, MayBeDestroyedBeforeTheObject) {
    auto object = TSTMourner::make();
    {
        auto separate = std::make_unique<id>();
        objc_initWeak(separate.get(), object);
        objc_destroyWeak(separate.get());
    }
    object = nullptr;  // must not write to the freed variable
    EXPECT_EQ(deaths, 1);
}

TEST_F(WeakReference, ManyAreClearedAtOnce) {
    auto object = TSTMourner::make();
    id variables[100];
    for (id& each : variables) objc_initWeak(&each, object);
    object = nullptr;
    for (id each : variables) EXPECT_EQ(each, nullptr);
}

TEST_F(WeakReference, InAnotherObjectGoesWithThat) {
    auto holder = TSTMourner::make();
    auto object = TSTMourner::make();
    static_cast<Mourner*>(static_cast<TSTMourner*>(holder.get()))->ivars().other = object.get();
    holder = nullptr;
    object = nullptr;
    EXPECT_EQ(deaths, 2);
}

TEST_F(WeakReference, NeverYieldsADyingObjectToAnotherThread) {
    for (int round = 0; round < 300; ++round) {
        auto object = TSTMourner::make();
        objc_initWeak(&variable, object);
        std::atomic<bool> stop = false;
        std::thread reader([&] {
            objc::AutoreleasePool pool;
            while (!stop) objc_release(objc_loadWeakRetained(&variable));
        });
        object = nullptr;
        stop = true;
        reader.join();
        objc_destroyWeak(&variable);
    }
    EXPECT_EQ(deaths, 300);
}

TEST_F(WeakReference, OfAnAutoreleasedObjectLastsUntilThePoolGoes) {
    {
        objc::AutoreleasePool pool;
        objc_initWeak(&variable, TSTMourner::make().autoreleased());
        EXPECT_NE(variable, nullptr);
    }
    EXPECT_EQ(variable, nullptr);
    EXPECT_EQ(deaths, 1);
}

TEST_F(WeakReference, PoolsNest) {
    objc::AutoreleasePool outer;
    TSTMourner::make().autoreleased();
    {
        objc::AutoreleasePool inner;
        TSTMourner::make().autoreleased();
    }
    EXPECT_EQ(deaths, 1);
}

}  // namespace
}  // namespace test
