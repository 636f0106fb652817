#pragma once

// Proof that the peers do the library's job before they are timed: each
// hand-written writer produces the library's text byte for byte and files the
// library reads back to the same records, and each hand-written reader loads
// the same records as the library from files of every encoding. A mismatch
// prints what differs and ends the program with exit code 1.

#include <string>

#include "peerRecords.h"

namespace peers {

// `folder` takes the scratch file.
void checkPeers(const Job& sample, const std::string& folder);

}  // namespace peers
