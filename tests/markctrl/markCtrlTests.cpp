#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <utils/errorHandle.h>
#include <utils/logger.h>

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

using namespace param;
using utils::ErrorResponseType;

namespace {

SeriObject parse(std::string_view text) {
  SeriObject obj(utils::JsonLoad::instance);
  EXPECT_EQ(obj.parser(text.data(), text.size()), 0u) << text;
  return obj;
}

std::string saved(const ExtParam& r) {
  SeriObject obj(utils::JsonSave::instance);
  EXPECT_EQ(r.save(obj), 0u);
  return obj.stringfy();
}

// Loads `text` (every key, values unlike the defaults) and saves it back unchanged.
template <class R>
R roundTrip(std::string_view text) {
  R r;
  EXPECT_EQ(r.load(parse(text)), 0u) << text;
  EXPECT_EQ(saved(r), text);
  return r;
}

// Answers `answer` and records the codes it was asked about.
struct RecordingHandler {
  explicit RecordingHandler(ErrorResponseType answer)
      : guard([this, answer](SdkError code, unsigned) {
          codes.push_back(code);
          return answer;
        }) {}
  std::vector<SdkError> codes;
  utils::ScopedErrorHandler guard;
};

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

TEST(RotaryCtrlData, DefaultsSaveInTableOrder) {
  utils::ScopedErrorHandler guard(ErrorResponseType::Abort);
  EXPECT_EQ(
      saved(AxAngleCtrlData()),
      R"({"axisId":0,"mainDir":0,"rotType":1,"circleCount":5,"angleGap":10,"bToZero":false})");
  EXPECT_EQ(
      saved(AxDivCtrlData()),
      R"({"axisId":0,"mainDir":0,"stepLen":5,"diameter":20,"bDivMark":false,"vDivStep":[],)"
      R"("bToZero":false,"bRedMarkToZero":false,"dislocCompensate":0,"blockGapCompensate":0})");
  EXPECT_EQ(saved(AxRotTextCtrlData()),
            R"({"axisId":0,"mainDir":0,"diameter":20,"bPathHeadOn":false,"bToZero":false,)"
            R"("bRedMarkToZero":false,"blockGapCompensate":0})");
  EXPECT_EQ(saved(AxRingCtrlData()),
            R"({"axisId":0,"mainDir":0,"diameter":20,"bPathHeadOn":false,"bToZero":false,)"
            R"("bRedMarkToZero":false})");
  AxSupRulerCtrlData ruler;
  ruler.rType = 2;  // the one member without a default
  EXPECT_EQ(saved(ruler),
            R"({"rType":2,"axisId":0,"mainDir":0,"tickCount":10,"minSpace":1,"diameter":10,)"
            R"("bToZero":false,"bRedMarkToZero":false})");
  EXPECT_EQ(saved(AxRotMoveCtrlData()),
            R"({"axisId":0,"nProjectType":0,"fDiameter":25.5,"fSpeed":400,"fAccSpeed":12000,)"
            R"("fSpeedMotor":10,"fAccSpeedMotor":1000,"fSpeedScan":1000,"fAccSpeedScan":10000,)"
            R"("fSamePosFilter":0.1,"fSharpArcFilter":0.5,"fSpeedStep":1,"bToZero":false,)"
            R"("bRedMarkToZero":false})");
  EXPECT_EQ(saved(ProjectCtrlData()), R"({"nProjectType":0,"diameter":20,"fFocus":1})");
  EXPECT_EQ(saved(MRPara()), R"({"fDx":0,"fDy":0,"fRa":0,"fCx":0,"fCy":0})");
}

TEST(RotaryCtrlData, LoadPutsEveryKeyIntoItsMember) {
  utils::ScopedErrorHandler guard(ErrorResponseType::Abort);
  auto div = roundTrip<AxDivCtrlData>(
      R"({"axisId":1,"mainDir":2,"stepLen":3.5,"diameter":40,"bDivMark":true,"vDivStep":[1.5,2,0.25],)"
      R"("bToZero":true,"bRedMarkToZero":false,"dislocCompensate":0.02,"blockGapCompensate":-0.5})");
  EXPECT_EQ(div.vDivStep, (std::vector<float>{1.5f, 2.0f, 0.25f}));
  EXPECT_EQ(div.dislocCompensate, 0.02f);
  auto move = roundTrip<AxRotMoveCtrlData>(
      R"({"axisId":1,"nProjectType":2,"fDiameter":50,"fSpeed":800,"fAccSpeed":24000,)"
      R"("fSpeedMotor":20,"fAccSpeedMotor":2000,"fSpeedScan":3000,"fAccSpeedScan":30000,)"
      R"("fSamePosFilter":0.05,"fSharpArcFilter":0.25,"fSpeedStep":2,"bToZero":true,)"
      R"("bRedMarkToZero":false})");
  EXPECT_EQ(move.fSpeedScan, 3000.0f);
  EXPECT_EQ(move.fSamePosFilter, 0.05f);
  EXPECT_EQ(roundTrip<MRPara>(R"({"fDx":1.25,"fDy":-2,"fRa":90,"fCx":0.1,"fCy":-0.3})").fCx, 0.1);
}

TEST(RotaryCtrlData, DivStepsLoadAllOrNothing) {
  std::vector<std::string> lines;
  auto previousSink =
      utils::Logger::setSink([&](utils::LogLevel, std::string_view tag, std::string_view line) {
        lines.push_back(std::string(tag) + ": " + std::string(line));
      });
  // A bad element ends the load at once with its code, whatever the handler answers.
  for (auto answer : {ErrorResponseType::Ignore, ErrorResponseType::Abort}) {
    RecordingHandler h(answer);
    AxDivCtrlData div;
    div.vDivStep = {9.0f, 8.0f};
    EXPECT_EQ(div.load(parse(R"({"axisId":1,"mainDir":0,"stepLen":5,"diameter":20,"bDivMark":true,)"
                             R"("vDivStep":[1.5,"x",2],"bToZero":true})")),
              utils::errc::wrongType);
    EXPECT_EQ(div.vDivStep, (std::vector<float>{9.0f, 8.0f}));
    EXPECT_TRUE(div.bDivMark);
    EXPECT_FALSE(div.bToZero);
    EXPECT_TRUE(h.codes.empty());
  }
  utils::Logger::setSink(previousSink);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0], "Param: \"vDivStep\" holds an unreadable element, load stopped: 0x110002");

  // A key that is no array is an ordinary failed key; a readable list replaces the old one.
  RecordingHandler h(ErrorResponseType::Ignore);
  AxDivCtrlData div;
  div.vDivStep = {9.0f};
  EXPECT_EQ(div.load(parse(R"({"vDivStep":3,"bToZero":true})")), 0u);
  EXPECT_EQ(div.vDivStep, std::vector<float>{9.0f});
  EXPECT_TRUE(div.bToZero);
  EXPECT_EQ(h.codes[5], utils::errc::wrongType);
  EXPECT_EQ(div.load(parse(R"({"vDivStep":[]})")), 0u);
  EXPECT_TRUE(div.vDivStep.empty());
}

TEST(RotaryCtrlData, ClonesAreIndependent) {
  AxDivCtrlData div;
  div.vDivStep = {1.0f, 2.0f, 3.0f};
  std::unique_ptr<ExtParam> base(static_cast<const ExtParam&>(div).clone());
  auto* copy = dynamic_cast<AxDivCtrlData*>(base.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->vDivStep, (std::vector<float>{1.0f, 2.0f, 3.0f}));
  copy->vDivStep[0] = 10.0f;
  EXPECT_EQ(div.vDivStep[0], 1.0f);

  AxSupRulerCtrlData ruler;
  ruler.rType = 4;
  ExtParamProxy held(ruler);
  EXPECT_EQ(static_cast<AxSupRulerCtrlData*>(held.get())->rType, 4);
}

TEST(MarkCtrlData, SavesAndLoadsItsTenKeysButNotTheExtensions) {
  utils::ScopedErrorHandler guard(ErrorResponseType::Abort);
  MarkCtrlData job = jobWithExtensions();
  SeriObject obj(utils::JsonSave::instance);
  ASSERT_EQ(job.save(obj), 0u);
  EXPECT_EQ(obj.stringfy(),
            R"({"markType":1,"bAsyn":true,"bOnline":true,"markCount":3,"bContinuousMark":false,)"
            R"("bSelectMark":false,"bRedLightMark":false,"bSimulateMark":false,)"
            R"("bNoLightMode":false,"pointTime":100})");

  const ExtParam* held = job.firstExtParam.get();
  ASSERT_EQ(job.load(parse(R"({"markType":4,"bAsyn":false,"bOnline":true,"markCount":0,)"
                           R"("bContinuousMark":true,"bSelectMark":false,"bRedLightMark":true,)"
                           R"("bSimulateMark":false,"bNoLightMode":true,"pointTime":250})")),
            0u);
  EXPECT_EQ(static_cast<std::int32_t>(job.markType), 4);
  EXPECT_TRUE(!job.bAsyn && job.bContinuousMark && job.bRedLightMark && job.bNoLightMode);
  EXPECT_FALSE(job.bSelectMark || job.bSimulateMark || job.markCount != 0 || job.pointTime != 250);
  EXPECT_EQ(job.firstExtParam.get(), held);
  EXPECT_EQ(second(job).vDivStep.size(), 2u);
}

// A missing last key: Ignore keeps the member and succeeds, Abort returns the code;
// the earlier keys are loaded either way.
TEST(MarkCtrlData, FailedKeysFollowTheErrorResponse) {
  const auto noCy = parse(R"({"fDx":1,"fDy":2,"fRa":3,"fCx":4})");
  const auto noPointTime = parse(
      R"({"markType":2,"bAsyn":false,"bOnline":true,"markCount":7,"bContinuousMark":false,)"
      R"("bSelectMark":true,"bRedLightMark":false,"bSimulateMark":false,"bNoLightMode":false})");
  for (auto answer : {ErrorResponseType::Ignore, ErrorResponseType::Abort}) {
    const SdkError expected = answer == ErrorResponseType::Abort ? utils::errc::keyMissing : 0u;
    RecordingHandler h(answer);
    MRPara mr;
    mr.fCy = 7.5;
    EXPECT_EQ(mr.load(noCy), expected);
    EXPECT_EQ(mr.fCx, 4.0);
    EXPECT_EQ(mr.fCy, 7.5);
    MarkCtrlData job;
    EXPECT_EQ(job.load(noPointTime), expected);
    EXPECT_EQ(job.markCount, 7u);
    EXPECT_EQ(job.pointTime, 100u);
    EXPECT_EQ(h.codes, (std::vector<SdkError>{utils::errc::keyMissing, utils::errc::keyMissing}));
  }
}

TEST(MarkCtrlData, CopiesCloneMovesTakeOverAssignmentsCopy) {
  MarkCtrlData source = jobWithExtensions();
  const ExtParam* a = source.firstExtParam.get();
  const ExtParam* b = source.secondExtParam.get();

  MarkCtrlData copy(source);
  EXPECT_EQ(copy.markCount, 3u);
  EXPECT_NE(copy.firstExtParam.get(), a);
  EXPECT_EQ(dynamic_cast<AxAngleCtrlData&>(*copy.firstExtParam.get()).axisId, 1);
  second(copy).vDivStep.clear();
  EXPECT_EQ(second(source).vDivStep.size(), 2u);

  MarkCtrlData moved(std::move(source));
  EXPECT_EQ(moved.firstExtParam.get(), a);
  EXPECT_EQ(moved.secondExtParam.get(), b);
  EXPECT_TRUE(source.firstExtParam.empty() && source.secondExtParam.empty());

  // Move assignment copies too: the source keeps its records, the target gets clones.
  MarkCtrlData target = jobWithExtensions();
  target = std::move(moved);
  EXPECT_EQ(moved.secondExtParam.get(), b);
  EXPECT_NE(target.secondExtParam.get(), b);
  EXPECT_EQ(second(target).vDivStep, (std::vector<float>{0.5f, 1.5f}));
  target = MarkCtrlData();
  EXPECT_TRUE(target.firstExtParam.empty() && target.secondExtParam.empty());
  MarkCtrlData& alias = moved;
  moved = alias;
  EXPECT_EQ(moved.firstExtParam.get(), a);
}

TEST(MarkContext, CountsPassesAgainstTheSwitches) {
  markContext once;
  EXPECT_TRUE(once.shouldContinueMark());
  once.addSentMarkCount();
  EXPECT_EQ(once.sentMarkCount(), 1u);
  EXPECT_FALSE(once.shouldContinueMark());
  once.setActualMarkedCount(0);  // what the device reports plays no part
  EXPECT_FALSE(once.shouldContinueMark());

  MarkCtrlData job;
  job.markCount = 0;
  EXPECT_FALSE(markContext(job).shouldContinueMark());
  job.bContinuousMark = true;
  markContext endless(job);
  endless.setSentMarkCount(4000000000u);
  EXPECT_TRUE(endless.shouldContinueMark());

  markContext ctx(jobWithExtensions());
  ctx.addSentMarkCount();
  ctx.addSentMarkCount();
  ctx.setActualMarkedCount(1);
  EXPECT_TRUE(ctx.shouldContinueMark());  // 2 of 3
  job = MarkCtrlData();
  job.markCount = 2;
  ctx.setMarkParams(job);
  EXPECT_EQ(ctx.sentMarkCount(), 2u);
  EXPECT_EQ(ctx.actualMarkedCount(), 1u);
  EXPECT_TRUE(ctx.getMarkParam().firstExtParam.empty());
  EXPECT_FALSE(ctx.shouldContinueMark());
  ctx.reset(job);
  EXPECT_EQ(ctx.sentMarkCount(), 0u);
  EXPECT_EQ(ctx.actualMarkedCount(), 0u);
  EXPECT_TRUE(ctx.shouldContinueMark());
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
