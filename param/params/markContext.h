#pragma once

#include <param/export.h>
#include <param/params/markCtrlData.h>

namespace param {

// The running state of one marking job: its switches and two pass counters.
//
// A job is constructed (or reset) with its switches; before each pass the
// driver asks shouldContinueMark, sends the pass and calls addSentMarkCount;
// the device side reports finished passes through setActualMarkedCount.
// setMarkParams changes the switches of a running job and keeps the counters.
//
// Copies clone the extension records of `markParam`; both assignments copy
// (see MarkCtrlData). Not synchronised: a context belongs to the one thread
// that drives the job.
struct PARAM_API markContext {
  explicit markContext(const MarkCtrlData& params = MarkCtrlData()) : markParam(params) {}
  markContext(const markContext&) = default;
  markContext(markContext&&) noexcept = default;
  markContext& operator=(const markContext&) = default;
  markContext& operator=(markContext&&) = default;  // copies markParam's records
  ~markContext() = default;

  // Passes handed to the device so far.
  const unsigned& sentMarkCount() const { return sentMarkCount_; }
  void setSentMarkCount(const unsigned& count) { sentMarkCount_ = count; }
  void addSentMarkCount() { ++sentMarkCount_; }

  // Passes that the device reported as done; plays no part in shouldContinueMark.
  const unsigned& actualMarkedCount() const { return actualMarkedCount_; }
  void setActualMarkedCount(const unsigned& count) { actualMarkedCount_ = count; }

  const MarkCtrlData& getMarkParam() const { return markParam; }
  // Replaces the switches; the counters keep their values.
  void setMarkParams(const MarkCtrlData& params);
  // Both counters back to 0, then the new switches.
  void reset(const MarkCtrlData& params);

  // Whether another pass is to be sent: always in continuous mode, otherwise
  // while fewer than markParam.markCount passes were sent (none for a count of 0).
  bool shouldContinueMark() const;

  MarkCtrlData markParam;

 private:
  unsigned sentMarkCount_ = 0;
  unsigned actualMarkedCount_ = 0;
};

}  // namespace param
