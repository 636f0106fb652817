#pragma once

// The job written by hand with other JSON libraries, from a document file to
// the records and back, through documentFile.h. Each walks the key table of
// peerRecords.h and assigns or writes every key.
//
// Readers load in place like the library: a missing key, or a value of the
// wrong kind or out of the member's range, keeps the member's value; a list
// takes the saved array's length. They return false for a file that cannot be
// read or decoded and for text that is not JSON.
//
// Writers produce the library's text: floats as the shortest decimal of the
// float, doubles as their shortest exact decimal, "-0.0" for a negative zero
// (finite numbers only: the sample job has no NaN or infinity).

#include <cstddef>
#include <string>

#include <param/seri/seriOption.h>

#include "peerRecords.h"

namespace peers {

bool nlohmannRead(const std::string& file, Job& job);
bool nlohmannWrite(const Job& job, const std::string& file, param::SeriOption option);
std::string nlohmannText(const Job& job);

bool rapidjsonRead(const std::string& file, Job& job);
bool rapidjsonWrite(const Job& job, const std::string& file, param::SeriOption option);
std::string rapidjsonText(const Job& job);

bool simdjsonRead(const std::string& file, Job& job);

// The number as the library writes it into `out` (32 bytes); returns its length.
std::size_t numberText(float f, char* out);
std::size_t numberText(double d, char* out);

}  // namespace peers
