#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include <param/params/stepMarkParam.h>
#include <param/seri/recordIo.h>

#include "support/testSupport.h"

using namespace param;
using testing_support::jsonOf;
using testing_support::parsed;
using testing_support::RecordingHandler;
using utils::ErrorResponseType;
using utils::JsonLoad;
using utils::JsonSave;
namespace uerr = utils::errc;

namespace {

enum class Mode : std::int32_t { A = 0, B = 7 };

// A record with one member of every kind the helpers know.
struct Sample {
  std::int32_t count = 1;
  float gain = 0.5f;
  Mode mode = Mode::A;
  std::string path = "p";
  char name[8] = "abc";
  Point2d at{1, 2};
  float map[3] = {0, 10, 20};
  std::array<bool, 2> flags{};
  std::vector<double> list{9};
  std::vector<StepMarkParam> steps;
  StepMarkParam sub;

  SdkError load(const SeriObject& obj);
  SdkError save(SeriObject& obj) const;
};

SdkError keys(auto&& io, RecordOf<Sample> auto& r) {
  io("count", r.count);
  io("gain", r.gain);
  io("mode", r.mode);
  io("path", r.path);
  io("name", r.name);
  io("at", r.at);
  io("map", r.map);
  io("flags", r.flags);
  io("list", r.list);
  io("steps", r.steps);
  io("sub", r.sub);
  return io.result();
}

SdkError Sample::load(const SeriObject& obj) {
  return keys(RecordLoader(obj), *this);
}
SdkError Sample::save(SeriObject& obj) const {
  return keys(RecordSaver(obj), *this);
}

// A record whose save always fails.
struct Unsavable {
  SdkError load(const SeriObject&) { return 0; }
  SdkError save(SeriObject&) const { return 0x99; }
};

}  // namespace

TEST(RecordIo, SavesEveryKindInKeyOrderAndLoadsItBack) {
  Sample s;
  StepMarkParam step;
  step.stepDelay = 7;
  s.steps = {step};
  EXPECT_EQ(jsonOf(s),
            R"({"count":1,"gain":0.5,"mode":0,"path":"p","name":"abc","at":{"x":1,"y":2},)"
            R"("map":[0,10,20],"flags":[false,false],"list":[9],)"
            R"("steps":[{"bEnable":false,"stepDelay":7,"stepLen":0.02}],)"
            R"("sub":{"bEnable":false,"stepDelay":100,"stepLen":0.02}})");

  Sample changed;
  changed.count = -4;
  changed.mode = Mode::B;
  changed.at = {3.25, -1};
  changed.map[2] = 0.1f;
  changed.flags[1] = true;
  changed.list = {1.5, 2.5};
  changed.sub.stepLen = 0.3f;
  Sample back;
  ASSERT_EQ(back.load(parsed(jsonOf(changed))), 0u);
  EXPECT_EQ(jsonOf(back), jsonOf(changed));
}

TEST(RecordIo, FixedArraysLoadAPrefixInPlace) {
  Sample s;
  ASSERT_EQ(s.load(parsed(R"({"map":[5],"flags":[true,true,true,true]})")), 0u);
  EXPECT_EQ(s.map[0], 5);
  EXPECT_EQ(s.map[1], 10);  // beyond the saved length: kept
  EXPECT_TRUE(s.flags[0] && s.flags[1]);

  RecordingHandler handler(ErrorResponseType::Abort);
  Sample t;
  EXPECT_EQ(t.load(parsed(R"({"count":3,"gain":1,"mode":0,"path":"","name":"","at":{"x":0,"y":0},)"
                          R"("map":[1,"x",3]})")),
            uerr::wrongType);
  EXPECT_EQ(t.map[0], 1);   // read before the bad element
  EXPECT_EQ(t.map[2], 20);  // not reached
  EXPECT_EQ(t.count, 3);
  EXPECT_EQ(t.list, std::vector<double>{9});  // after the failing key: untouched
}

TEST(RecordIo, ListsAreReplacedOnlyWhenEveryElementReads) {
  Sample s;
  s.list = {1, 2};
  ASSERT_EQ(s.load(parsed(R"({"list":[3,"four",5]})")), 0u);  // default handler ignores
  EXPECT_EQ(s.list, (std::vector<double>{1, 2}));
  ASSERT_EQ(s.load(parsed(R"({"list":[]})")), 0u);
  EXPECT_TRUE(s.list.empty());

  ASSERT_EQ(s.load(parsed(R"({"steps":[{"stepDelay":1},{"bEnable":true}]})")), 0u);
  ASSERT_EQ(s.steps.size(), 2u);
  EXPECT_EQ(s.steps[0].stepDelay, 1u);
  EXPECT_EQ(s.steps[1].stepDelay, 100u);  // a fresh default element, missing keys kept
  EXPECT_TRUE(s.steps[1].bEnable);

  // An element that is not an object leaves the list as it was.
  ASSERT_EQ(s.load(parsed(R"({"steps":[{"stepDelay":4},3]})")), 0u);
  EXPECT_EQ(s.steps.size(), 2u);
  EXPECT_EQ(s.steps[0].stepDelay, 1u);
}

TEST(RecordIo, AbortStopsAtTheFailingKeyAndEachLevelRaisesIt) {
  {
    RecordingHandler handler(ErrorResponseType::Abort);
    Sample s;
    EXPECT_EQ(s.load(parsed(R"({"count":2,"gain":"loud","mode":7})")), uerr::wrongType);
    EXPECT_EQ(s.count, 2);
    EXPECT_EQ(s.mode, Mode::A);
    EXPECT_EQ(handler.codes.size(), 1u);
  }
  {
    // A nested failure is raised by the child's walk and again by the parent's.
    RecordingHandler handler(ErrorResponseType::Abort);
    SeriObject holder = parsed(R"({"sub":{"bEnable":true,"stepDelay":-1}})");
    Sample s;
    RecordLoader io(holder);
    io("sub", s.sub);
    EXPECT_EQ(io.result(), uerr::outOfRange);
    EXPECT_TRUE(s.sub.bEnable);
    EXPECT_EQ(handler.codes, (std::vector<SdkError>{uerr::outOfRange, uerr::outOfRange}));
  }
  {
    // With Ignore every failing key is raised once and the load goes on.
    RecordingHandler handler(ErrorResponseType::Ignore);
    Sample s;
    EXPECT_EQ(s.load(parsed(R"({"count":1e10,"at":[1,2],"sub":{"stepLen":"x"}})")), 0u);
    EXPECT_EQ(s.count, 1);
    EXPECT_EQ(s.at, Point2d(1, 2));
    // count, gain, mode, path, name, at, map, flags, list, steps missing or bad,
    // then sub: its stepLen raised inside, its two missing keys too.
    EXPECT_EQ(handler.codes.size(), 13u);
  }
}

TEST(RecordIo, ARecordThatFailsToSaveStoresNothing) {
  Unsavable bad;
  {
    RecordingHandler handler(ErrorResponseType::Ignore);
    SeriObject o(JsonSave::instance);
    RecordSaver io(o);
    io("bad", bad);
    io("after", 1);
    EXPECT_EQ(io.result(), 0u);
    EXPECT_EQ(o.stringfy(), R"({"after":1})");
  }
  RecordingHandler handler(ErrorResponseType::Abort);
  SeriObject o(JsonSave::instance);
  RecordSaver io(o);
  io("bad", bad);
  io("after", 1);
  EXPECT_EQ(io.result(), 0x99u);
  EXPECT_EQ(o.stringfy(), "{}");
}
