#pragma once

namespace param::internal {

// While one lives on this thread, errorStep and strictErrorStep hand the code
// back without asking the error handler. A walker that saves a member only to
// show its value in a report uses it, so that the handler sees exactly the
// calls it would see without reports.
class QuietErrorSteps {
 public:
  QuietErrorSteps();
  ~QuietErrorSteps();
  QuietErrorSteps(const QuietErrorSteps&) = delete;
  QuietErrorSteps& operator=(const QuietErrorSteps&) = delete;

 private:
  bool outer_;
};

}  // namespace param::internal
