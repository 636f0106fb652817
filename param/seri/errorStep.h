#pragma once

#include <utils/error.h>

#include <param/export.h>

namespace param {

using utils::SdkError;

// The error-response step that every load and save applies to each key.
//
// A failed key (code != 0) is reported to the process-wide error handler with
// responses Abort and Ignore offered. On Abort the operation stops and returns
// the code, so errorStep returns it; on any other answer the member keeps its
// value and the operation goes on, so errorStep returns 0. A code of 0 is
// returned as 0 without asking anybody.
//
// While the handler is asked, utils::KeyPath::current().str() names the key
// that failed, also when a nested record's failure is raised again by each
// enclosing record.
PARAM_API SdkError errorStep(SdkError code);

// The stricter variant: goes on only when the handler answers exactly Ignore;
// every other answer stops with the code.
PARAM_API SdkError strictErrorStep(SdkError code);

}  // namespace param
