#include "peerRecords.h"

#include <cstdio>

#include <param/seri/seriInfo.h>

namespace peers {
namespace {

// Walks a record's table and gives each member the next value of a sequence.
struct Filler {
  unsigned next;

  template <class T>
  void operator()(const char*, T& member) {
    fill(member);
  }

  template <class T>
  void fill(T& m) {
    const unsigned k = next++;
    if constexpr (std::is_same_v<T, bool>) {
      m = k % 2 == 0;
    } else if constexpr (std::is_integral_v<T>) {
      m = static_cast<T>(k % 100 + 1);  // fits every integer member
    } else if constexpr (std::is_floating_point_v<T>) {
      // Hundredths, as typed: the float nearest to "12.37" is written as 12.37.
      m = static_cast<T>(static_cast<double>(k % 20000 + 1) / 100.0);
    } else if constexpr (std::is_same_v<T, std::string>) {
      m = "D:/corrections/head" + std::to_string(k) + ".cor";
    } else if constexpr (CharArray<T>) {
      std::snprintf(m, sizeof m, "Pen %u", k);
    } else if constexpr (IsStdArray<T>::value) {
      for (auto& e : m)
        fill(e);
    } else if constexpr (IsVector<T>::value) {
      m.resize(3 + k % 7);
      for (auto& e : m)
        fill(e);
    } else {
      fields(*this, m);
    }
  }
};

}  // namespace

Job sampleJob(std::size_t pens) {
  Job job;
  job.pens.resize(pens);
  for (std::size_t i = 0; i < pens; ++i) {
    Filler{static_cast<unsigned>(i * 37)}.fill(job.pens[i]);
    job.pens[i].penId = static_cast<std::int32_t>(i);
  }
  Filler{7}.fill(job.board);

  const param::SeriInfo info(".cfg");
  job.info = {info.ver.toString(), info.os, info.arch, info.extension};
  return job;
}

}  // namespace peers
