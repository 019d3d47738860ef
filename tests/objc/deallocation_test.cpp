// When an object's variables go: after every -dealloc, a class's before its superclass's.
#include <string>
#include <vector>

#include "objc/class.h"
#include "support/phone.h"

/// Notes its name when it goes, and asks whomever it was given.
struct TSTCandle : objc::Interface<TSTCandle, "TSTCandle", NSObject> {
    static objc::strong<TSTCandle> make() { return class_send<"new", objc::strong<TSTCandle>>(); }
};
/// Stands for a class of the system: it calls a method of its own while it deallocates.
struct TSTRoom : objc::Interface<TSTRoom, "TSTRoom", NSObject> {
    void close() { send<"close">(); }
};
struct TSTLitRoom : objc::Interface<TSTLitRoom, "TSTLitRoom", TSTRoom> {};
struct TSTHall : objc::Interface<TSTHall, "TSTHall", TSTLitRoom> {};

namespace {

std::vector<std::string> events;

struct Candle : objc::Implements<Candle, TSTCandle> {
    struct Ivars {
        const char* name;
        TSTRoom* room;  // not owned
    };
    void dealloc() {
        events.push_back(std::string(ivars().name) + " goes");
        if (ivars().room) ivars().room->close();
    }
};
objc::strong<TSTCandle> candle(const char* name, TSTRoom* room = nullptr) {
    auto made = TSTCandle::make();
    auto& ivars = static_cast<Candle*>(made.get())->ivars();
    ivars.name = name;
    ivars.room = room;
    return made;
}

struct Room : objc::Implements<Room, TSTRoom> {
    struct Ivars {
        objc::strong<TSTCandle> lamp;
    };
    void close() { events.push_back("closed"); }
    void dealloc() {
        events.push_back("system deallocates");
        static_cast<TSTRoom*>(this)->send<"close">();
    }
};
struct LitRoom : objc::Implements<LitRoom, TSTLitRoom> {
    struct Ivars {
        objc::strong<TSTCandle> first, second;
    };
    void close() {
        auto said = [](TSTCandle* candle) {
            return candle ? static_cast<Candle*>(static_cast<objc_object*>(candle))->ivars().name : "none";
        };
        events.push_back(std::string("asked: ") + said(ivars().first) + ", " + said(ivars().second));
    }
};
struct Hall : objc::Implements<Hall, TSTHall> {
    using Ivars = objc::NoIvars;
    int seats() { return 100; }
    void dealloc() { events.push_back("hall deallocates"); }
};

}  // namespace

using namespace objc::definition;
OBJC_CLASS(TSTCandle, NSObject, Candle, ivar<"name", &Candle::Ivars::name>, ivar<"room", &Candle::Ivars::room>)
OBJC_CLASS(TSTRoom, NSObject, Room, ivar<"lamp", &Room::Ivars::lamp>, method<"close", &Room::close>)
OBJC_CLASS(TSTLitRoom, TSTRoom, LitRoom, ivar<"first", &LitRoom::Ivars::first>,
           ivar<"second", &LitRoom::Ivars::second>, method<"close", &LitRoom::close>)
OBJC_CLASS(TSTHall, TSTLitRoom, Hall, method<"seats", &Hall::seats>)

namespace test {
namespace {

class Deallocation : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        objc::register_classes([](auto) { return true; });
        events.clear();
    }
    template <class Interface>
    static void make_and_drop(bool asking = false) {
        auto room = Interface::template class_send<"new", objc::strong<TSTRoom>>();
        variables<Room>(room).lamp = candle("lamp");
        variables<LitRoom>(room).first = candle("first");
        variables<LitRoom>(room).second = candle("second", asking ? room.get() : nullptr);
    }
    template <class Implementation>
    static auto& variables(TSTRoom* room) {
        return static_cast<Implementation*>(static_cast<objc_object*>(room))->ivars();
    }
    using Events = std::vector<std::string>;
    Phone phone;
};

TEST_F(Deallocation, AMethodThatTheSystemCallsThenFindsTheVariables) {
    make_and_drop<TSTLitRoom>();
    ASSERT_GE(events.size(), 2u);
    EXPECT_EQ((Events{events[0], events[1]}), (Events{"system deallocates", "asked: first, second"}));
}

TEST_F(Deallocation, VariablesGoLastFirstAndSuperclassesLast) {
    make_and_drop<TSTLitRoom>();
    EXPECT_EQ(events, (Events{"system deallocates", "asked: first, second", "second goes", "first goes",
                              "lamp goes"}));
}

TEST_F(Deallocation, AMethodThatIsCalledLaterFindsNoneInsteadOfStaleOnes) {
    make_and_drop<TSTLitRoom>(true);
    EXPECT_EQ(events, (Events{"system deallocates", "asked: first, second", "second goes",
                              "asked: first, none", "first goes", "lamp goes"}));
}

TEST_F(Deallocation, ASubclassWithoutVariablesLetsThemGoOnce) {
    make_and_drop<TSTHall>();
    EXPECT_EQ(events, (Events{"hall deallocates", "system deallocates", "asked: first, second", "second goes",
                              "first goes", "lamp goes"}));
}

}  // namespace
}  // namespace test
