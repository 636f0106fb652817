#pragma once

// The job done with the library: a document read from a file and the pens and
// the board loaded from it, or saved into a document written to a file.

#include <string>

#include <param/seri/seriOption.h>

#include "peerRecords.h"

namespace peers {

// readFromFile, then PenArray::load and LmcParam::load in place.
bool libraryRead(const std::string& file, Job& job);

// PenArray::save and LmcParam::save into a document, then writeToFile.
bool libraryWrite(const Job& job, const std::string& file, param::SeriOption option);

// The JSON text of the job's pens and board as the library saves them (without
// the information block), to compare the records of two jobs.
std::string librarySavedText(const Job& job);

}  // namespace peers
