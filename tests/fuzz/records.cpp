// Records: JSON text loaded into every large record, with the property "save,
// load, save again gives the same text". The first byte picks the record, the
// second whether the error handler stops at the first bad key; the rest is the
// JSON text. Whatever a record loads it must save, and what it saves must
// parse, load without a single failing key and save to the same text again.
// Segments are made through createSegment, and every accessor of a loaded
// Bezier segment is called.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include <utils/errorHandle.h>

#include <param/param.h>

#include "fuzzInput.h"

namespace {

using param::SdkError;
using param::SeriObject;

[[noreturn]] void fail(const char* record, const char* what, const std::string& a,
                       const std::string& b = "") {
  std::fprintf(stderr, "%s: %s\n%s\n%s\n", record, what, a.c_str(), b.c_str());
  std::abort();
}

SeriObject parsedOrFail(const char* record, const std::string& text) {
  SeriObject obj(utils::JsonLoad::instance);
  if (SdkError e = obj.parser(text.data(), text.size())) {
    fail(record, "the saved text does not parse", text, std::to_string(e));
  }
  return obj;
}

// Loads `in` into a fresh record, saves it, and checks that the saved text
// parses, loads without a failing key and saves to the same text.
template <class R, class Make, class Load, class Save>
void roundTrip(const char* name, const SeriObject& in, Make make, Load load, Save save) {
  R first = make();
  load(first, in);
  SeriObject saved(utils::JsonSave::instance);
  if (SdkError e = save(first, saved)) {
    fail(name, "a loaded record does not save", in.stringfy(), std::to_string(e));
  }
  const std::string text = saved.stringfy();

  const SeriObject back = parsedOrFail(name, text);
  R second = make();
  {
    utils::ScopedErrorHandler strict(utils::ErrorResponseType::Abort);
    if (SdkError e = load(second, back)) {
      fail(name, "the saved text does not load", text, std::to_string(e));
    }
  }
  SeriObject again(utils::JsonSave::instance);
  if (save(second, again) != 0 || again.stringfy() != text) {
    fail(name, "saving again gives another text", text, again.stringfy());
  }
}

template <class R>
void roundTrip(const char* name, const SeriObject& in) {
  roundTrip<R>(
      name, in, [] { return R(); }, [](R& r, const SeriObject& o) { return r.load(o); },
      [](const R& r, SeriObject& o) { return r.save(o); });
}

// Every accessor of a loaded Bezier segment answers (none may stop the process).
void touch(const param::BezierSegment& b) {
  volatile double sink = b.firstPoint().x + b.lastPoint().y;
  for (std::size_t i = 0; i < b.size(); ++i)
    sink = sink + b[i].x;
  param::BezierSegment copy = b;
  copy.reverse();
  copy.postTransform(param::Matrix2d::makeRotate(30, 1, 2));
  sink = sink + copy.firstPoint().y;
}

void segment(const SeriObject& in) {
  const auto first = param::SegmentBase::createSegment(in);
  if (!first) return;
  if (auto* b = dynamic_cast<const param::BezierSegment*>(first.get())) touch(*b);
  SeriObject saved(utils::JsonSave::instance);
  if (SdkError e = first->save(saved)) {
    fail("segment", "a loaded segment does not save", in.stringfy(), std::to_string(e));
  }
  const std::string text = saved.stringfy();
  std::shared_ptr<param::SegmentBase> second;
  {
    utils::ScopedErrorHandler strict(utils::ErrorResponseType::Abort);
    second = param::SegmentBase::createSegment(parsedOrFail("segment", text));
  }
  if (!second) fail("segment", "the saved segment does not load", text);
  SeriObject again(utils::JsonSave::instance);
  if (second->save(again) != 0 || again.stringfy() != text) {
    fail("segment", "saving again gives another text", text, again.stringfy());
  }
}

using Runner = void (*)(const SeriObject&);

const Runner kRecords[] = {
    [](const SeriObject& in) { roundTrip<param::LmcParam>("LmcParam", in); },
    [](const SeriObject& in) { roundTrip<param::PenArray>("PenArray", in); },
    [](const SeriObject& in) { roundTrip<param::FillParam>("FillParam", in); },
    [](const SeriObject& in) { roundTrip<param::ArrayParam>("ArrayParam", in); },
    [](const SeriObject& in) { roundTrip<param::DataRecordParam>("DataRecordParam", in); },
    [](const SeriObject& in) { roundTrip<param::MarkCtrlData>("MarkCtrlData", in); },
    [](const SeriObject& in) { roundTrip<param::AxAngleCtrlData>("AxAngleCtrlData", in); },
    [](const SeriObject& in) { roundTrip<param::AxDivCtrlData>("AxDivCtrlData", in); },
    [](const SeriObject& in) { roundTrip<param::AxRingCtrlData>("AxRingCtrlData", in); },
    [](const SeriObject& in) { roundTrip<param::AxRotMoveCtrlData>("AxRotMoveCtrlData", in); },
    [](const SeriObject& in) { roundTrip<param::AxRotTextCtrlData>("AxRotTextCtrlData", in); },
    [](const SeriObject& in) {
      roundTrip<param::AxSupRulerCtrlData>(
          "AxSupRulerCtrlData", in,
          [] {
            param::AxSupRulerCtrlData r;
            r.rType = 0;  // has no default of its own
            return r;
          },
          [](auto& r, const SeriObject& o) { return r.load(o); },
          [](const auto& r, SeriObject& o) { return r.save(o); });
    },
    [](const SeriObject& in) { roundTrip<param::ProjectCtrlData>("ProjectCtrlData", in); },
    [](const SeriObject& in) { roundTrip<param::MRPara>("MRPara", in); },
    [](const SeriObject& in) { roundTrip<param::AxisSetting>("AxisSetting", in); },
    [](const SeriObject& in) { roundTrip<param::AxisRunData>("AxisRunData", in); },
    [](const SeriObject& in) { roundTrip<param::AnchorPoint>("AnchorPoint", in); },
    [](const SeriObject& in) { roundTrip<param::SeriInfo>("SeriInfo", in); },
    [](const SeriObject& in) { roundTrip<param::Variant>("Variant", in); },
    [](const SeriObject& in) {
      roundTrip<param::Matrix2d>(
          "Matrix2d", in, [] { return param::Matrix2d(); },
          [](param::Matrix2d& m, const SeriObject& o) { return m.load(o, "matrix"); },
          [](const param::Matrix2d& m, SeriObject& o) { return m.save(o, "matrix"); });
    },
    segment,
    // The colour table only validates what it loads.
    [](const SeriObject& in) { (void)param::ColorMgr().load(in); },
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::quietLog();
  fuzz::Input input(data, size);
  const Runner run = kRecords[input.pick(std::size(kRecords))];
  const bool stopAtFirstBadKey = input.flag();
  const std::string_view text = input.rest();

  SeriObject in(utils::JsonLoad::instance);
  if (in.parser(text.data(), text.size()) != 0) return 0;
  utils::ScopedErrorHandler handler(stopAtFirstBadKey ? utils::ErrorResponseType::Abort
                                                      : utils::ErrorResponseType::Ignore);
  run(in);
  return 0;
}
