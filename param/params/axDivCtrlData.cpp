#include <param/params/axDivCtrlData.h>

#include <type_traits>

#include <utils/logger.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {

// A list key whose elements must all be readable. Fetching the array is an
// ordinary key (its failure goes through the error-response step); an
// unreadable element is not: its code is left in `badElement` for the record to
// return at once, and the list is left as it was.
template <class List>
struct StrictListField {
  StrictListField(List& l, SdkError& bad) : list(l), badElement(bad) {}

  SdkError read(const KeySource& src) {
    using Io = FieldIo<std::remove_const_t<List>>;
    const SdkError e = Io::read(src, list);
    if (e == 0) return 0;
    // The list helper fails the same way for the key and for an element; a
    // second look at the key (a shared view, no copy) tells them apart.
    SeriArray probe(utils::JsonLoad::instance);
    if (src.getArray(probe) != 0) return e;
    utils::Logger(utils::LogLevel::Error, "Param")
        .write("\"")
        .write(src.key)
        .write("\" holds an unreadable element, load stopped: ")
        .write(e);
    badElement = e;
    return 0;
  }
  SdkError write(KeySink& dst) const {
    return FieldIo<std::remove_const_t<List>>::write(dst, list);
  }

  List& list;
  SdkError& badElement;
};

SdkError keys(auto&& io, RecordOf<AxDivCtrlData> auto& r) {
  SdkError badStep = 0;
  io("axisId", r.axisId);
  io("mainDir", r.mainDir);
  io("stepLen", r.stepLen);
  io("diameter", r.diameter);
  io("bDivMark", r.bDivMark);
  io("vDivStep", StrictListField(r.vDivStep, badStep));
  if (badStep != 0) return badStep;
  io("bToZero", r.bToZero);
  io("bRedMarkToZero", r.bRedMarkToZero);
  io("dislocCompensate", r.dislocCompensate);
  io("blockGapCompensate", r.blockGapCompensate);
  return io.result();
}
}  // namespace

AxDivCtrlData::~AxDivCtrlData() = default;
AxDivCtrlData* AxDivCtrlData::clone() const {
  return new AxDivCtrlData(*this);
}
SdkError AxDivCtrlData::load(const SeriObject& obj) {
  return keys(RecordLoader(obj), *this);
}
SdkError AxDivCtrlData::save(SeriObject& obj) const {
  return keys(RecordSaver(obj), *this);
}

}  // namespace param
