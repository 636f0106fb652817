#include <gtest/gtest.h>

#include <utility>

#include <param/params/axAngleCtrlData.h>
#include <param/params/axDivCtrlData.h>
#include <param/params/axRingCtrlData.h>
#include <param/params/axRotMoveCtrlData.h>
#include <param/params/axRotTextCtrlData.h>
#include <param/params/axSupRulerCtrlData.h>
#include <param/params/axisCommands.h>
#include <param/params/markContext.h>
#include <param/params/markCtrlData.h>
#include <param/params/mrPara.h>
#include <param/params/projectCtrlData.h>

#include "support/testSupport.h"

using namespace param;
using testing_support::jsonOf;
using testing_support::loadJson;
using testing_support::RecordingHandler;
using utils::ErrorResponseType;

namespace {

// Loads `text` into `r` and expects it to save back unchanged.
template <class R>
void expectRoundTrip(R& r, std::string_view text) {
  EXPECT_EQ(loadJson(r, text), 0u) << text;
  EXPECT_EQ(jsonOf(r), text);
}

// Three passes, an angle record (axis 1) and a division record with two steps.
MarkCtrlData jobWithExtensions() {
  MarkCtrlData job;
  job.markCount = 3;
  AxAngleCtrlData angle;
  angle.axisId = 1;
  AxDivCtrlData div;
  div.vDivStep = {0.5f, 1.5f};
  job.firstExtParam.setExtParam(angle);
  job.secondExtParam.setExtParam(div);
  return job;
}

AxDivCtrlData& second(const MarkCtrlData& job) {
  return dynamic_cast<AxDivCtrlData&>(*job.secondExtParam.get());
}

}  // namespace

TEST(MarkCtrlRecords, DefaultsSaveInTableOrder) {
  EXPECT_EQ(jsonOf(AxAngleCtrlData()),
            R"({"axisId":0,"mainDir":0,"rotType":1,"circleCount":5,"angleGap":10,)"
            R"("bToZero":false})");
  EXPECT_EQ(
      jsonOf(AxDivCtrlData()),
      R"({"axisId":0,"mainDir":0,"stepLen":5,"diameter":20,"bDivMark":false,"vDivStep":[],)"
      R"("bToZero":false,"bRedMarkToZero":false,"dislocCompensate":0,"blockGapCompensate":0})");
  EXPECT_EQ(jsonOf(AxRotTextCtrlData()),
            R"({"axisId":0,"mainDir":0,"diameter":20,"bPathHeadOn":false,"bToZero":false,)"
            R"("bRedMarkToZero":false,"blockGapCompensate":0})");
  EXPECT_EQ(jsonOf(AxRingCtrlData()),
            R"({"axisId":0,"mainDir":0,"diameter":20,"bPathHeadOn":false,"bToZero":false,)"
            R"("bRedMarkToZero":false})");
  AxSupRulerCtrlData ruler;
  ruler.rType = 2;  // the one member without a default
  EXPECT_EQ(jsonOf(ruler),
            R"({"rType":2,"axisId":0,"mainDir":0,"tickCount":10,"minSpace":1,"diameter":10,)"
            R"("bToZero":false,"bRedMarkToZero":false})");
  EXPECT_EQ(jsonOf(AxRotMoveCtrlData()),
            R"({"axisId":0,"nProjectType":0,"fDiameter":25.5,"fSpeed":400,"fAccSpeed":12000,)"
            R"("fSpeedMotor":10,"fAccSpeedMotor":1000,"fSpeedScan":1000,"fAccSpeedScan":10000,)"
            R"("fSamePosFilter":0.1,"fSharpArcFilter":0.5,"fSpeedStep":1,"bToZero":false,)"
            R"("bRedMarkToZero":false})");
  EXPECT_EQ(jsonOf(ProjectCtrlData()), R"({"nProjectType":0,"diameter":20,"fFocus":1})");
  EXPECT_EQ(jsonOf(MRPara()), R"({"fDx":0,"fDy":0,"fRa":0,"fCx":0,"fCy":0})");
  EXPECT_EQ(jsonOf(MarkCtrlData()),
            R"({"markType":1,"bAsyn":true,"bOnline":true,"markCount":1,"bContinuousMark":false,)"
            R"("bSelectMark":false,"bRedLightMark":false,"bSimulateMark":false,)"
            R"("bNoLightMode":false,"pointTime":100})");
}

TEST(MarkCtrlRecords, LoadPutsEveryKeyIntoItsMember) {
  utils::ScopedErrorHandler guard(ErrorResponseType::Abort);
  AxDivCtrlData div;
  expectRoundTrip(div, R"({"axisId":1,"mainDir":2,"stepLen":3.5,"diameter":40,"bDivMark":true,)"
                       R"("vDivStep":[1.5,2,0.25],"bToZero":true,"bRedMarkToZero":false,)"
                       R"("dislocCompensate":0.02,"blockGapCompensate":-0.5})");
  EXPECT_EQ(div.vDivStep, (std::vector<float>{1.5f, 2.0f, 0.25f}));
  EXPECT_EQ(div.dislocCompensate, 0.02f);

  // A job neither loads nor saves its extension records.
  MarkCtrlData job = jobWithExtensions();
  const ExtParam* held = job.firstExtParam.get();
  expectRoundTrip(job, R"({"markType":4,"bAsyn":false,"bOnline":true,"markCount":0,)"
                       R"("bContinuousMark":true,"bSelectMark":false,"bRedLightMark":true,)"
                       R"("bSimulateMark":false,"bNoLightMode":true,"pointTime":250})");
  EXPECT_TRUE(job.markType == MarkType{4} && !job.bAsyn && job.bContinuousMark);
  EXPECT_TRUE(job.bRedLightMark && job.bNoLightMode && !job.bSelectMark && !job.bSimulateMark);
  EXPECT_EQ(job.pointTime, 250u);
  EXPECT_EQ(job.firstExtParam.get(), held);
}

TEST(MarkCtrlRecords, DivStepsLoadAllOrNothing) {
  testing_support::LogCapture log;
  // A bad element ends the load at once with its code, whatever the handler answers.
  for (auto answer : {ErrorResponseType::Ignore, ErrorResponseType::Abort}) {
    RecordingHandler h(answer);
    AxDivCtrlData div;
    div.vDivStep = {9.0f, 8.0f};
    EXPECT_EQ(loadJson(div, R"({"axisId":1,"mainDir":0,"stepLen":5,"diameter":20,"bDivMark":true,)"
                            R"("vDivStep":[1.5,"x",2],"bToZero":true})"),
              utils::errc::wrongType);
    EXPECT_EQ(div.vDivStep, (std::vector<float>{9.0f, 8.0f}));
    EXPECT_TRUE(div.bDivMark && !div.bToZero);
    EXPECT_EQ(h.calls(), 0u);
  }
  // Each time the element is reported where it is, then the list's own line.
  const std::vector<std::string> lines = {
      "2 Param: vDivStep[1]: value of the wrong JSON type; found \"x\"; kept [9,8]",
      "3 Param: \"vDivStep\" holds an unreadable element, load stopped: 0x110002"};
  std::vector<std::string> twice = lines;
  twice.insert(twice.end(), lines.begin(), lines.end());
  EXPECT_EQ(log.formatted(), twice);

  // A key that is no array is an ordinary failed key; a readable list replaces the old one.
  RecordingHandler h(ErrorResponseType::Ignore);
  AxDivCtrlData div;
  div.vDivStep = {9.0f};
  EXPECT_EQ(loadJson(div, R"({"vDivStep":3,"bToZero":true})"), 0u);
  EXPECT_TRUE(div.vDivStep == std::vector<float>{9.0f} && div.bToZero);
  EXPECT_EQ(h.codes[5], utils::errc::wrongType);
  EXPECT_EQ(loadJson(div, R"({"vDivStep":[]})"), 0u);
  EXPECT_TRUE(div.vDivStep.empty());
}

// A missing last key: Ignore keeps the member and succeeds, Abort returns the code;
// the earlier keys are loaded either way.
TEST(MarkCtrlRecords, MissingKeyFollowsTheErrorResponse) {
  for (auto answer : {ErrorResponseType::Ignore, ErrorResponseType::Abort}) {
    const SdkError expected = answer == ErrorResponseType::Abort ? utils::errc::keyMissing : 0u;
    RecordingHandler h(answer);
    MRPara mr;
    mr.fCy = 7.5;
    EXPECT_EQ(loadJson(mr, R"({"fDx":1,"fDy":2,"fRa":3,"fCx":4})"), expected);
    EXPECT_TRUE(mr.fCx == 4.0 && mr.fCy == 7.5);
    EXPECT_EQ(h.codes, std::vector<SdkError>{utils::errc::keyMissing});
  }
}

TEST(MarkCtrlData, CopiesCloneMovesTakeOverAssignmentsCopy) {
  MarkCtrlData source = jobWithExtensions();
  const ExtParam* a = source.firstExtParam.get();
  const ExtParam* b = source.secondExtParam.get();

  MarkCtrlData copy(source);
  EXPECT_EQ(dynamic_cast<AxAngleCtrlData&>(*copy.firstExtParam.get()).axisId, 1);
  second(copy).vDivStep.clear();
  EXPECT_EQ(second(source).vDivStep.size(), 2u);

  MarkCtrlData moved(std::move(source));
  EXPECT_TRUE(moved.firstExtParam.get() == a && moved.secondExtParam.get() == b);
  EXPECT_TRUE(source.firstExtParam.empty() && source.secondExtParam.empty());

  // Move assignment copies too: the source keeps its records, the target gets clones.
  MarkCtrlData target = jobWithExtensions();
  target = std::move(moved);
  EXPECT_EQ(moved.secondExtParam.get(), b);
  EXPECT_EQ(second(target).vDivStep, (std::vector<float>{0.5f, 1.5f}));
  target = MarkCtrlData();
  EXPECT_TRUE(target.firstExtParam.empty() && target.secondExtParam.empty());
  moved = std::as_const(moved);  // assigning to itself keeps the records
  EXPECT_EQ(moved.firstExtParam.get(), a);

  AxSupRulerCtrlData ruler;
  ruler.rType = 4;
  EXPECT_EQ(static_cast<AxSupRulerCtrlData*>(ExtParamProxy(ruler).get())->rType, 4);
}

TEST(MarkContext, CountsPassesAgainstTheSwitches) {
  markContext ctx(jobWithExtensions());  // three passes
  ctx.addSentMarkCount();
  ctx.addSentMarkCount();
  ctx.setActualMarkedCount(1);  // what the device reports plays no part
  EXPECT_TRUE(ctx.shouldContinueMark());
  MarkCtrlData job;
  job.markCount = 2;
  ctx.setMarkParams(job);  // the counters stay
  EXPECT_EQ(std::pair(ctx.sentMarkCount(), ctx.actualMarkedCount()), std::pair(2u, 1u));
  EXPECT_FALSE(ctx.shouldContinueMark());
  job.bContinuousMark = true;
  ctx.setMarkParams(job);
  ctx.setSentMarkCount(4000000000u);
  EXPECT_TRUE(ctx.shouldContinueMark());
  job.markCount = 0;
  job.bContinuousMark = false;
  ctx.reset(job);
  EXPECT_EQ(std::pair(ctx.sentMarkCount(), ctx.actualMarkedCount()), std::pair(0u, 0u));
  EXPECT_FALSE(ctx.shouldContinueMark());  // a count of 0 sends nothing
}

TEST(AxisCommands, ConstructorsFillTheNamedFields) {
  AxisMoveParam move(2, -12.5f, true);
  EXPECT_TRUE(move.axisId == 2 && move.target == -12.5f && move.bRelative);
  const std::int32_t ids[] = {3, 1, 0, 2, 5};
  const float to[] = {10.0f, 20.0f, 30.0f};
  AxisLinkageParam link(ids, to);  // as many as both lists hold
  EXPECT_EQ(link.axisCount, 3);
  EXPECT_EQ(link.targets[2], 30.0f);
  const float five[] = {1, 2, 3, 4, 5};
  EXPECT_EQ(AxisLinkageParam(ids, five).axisCount, 4);  // at most four
}
