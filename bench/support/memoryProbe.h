#pragma once

// Peak memory of one job on a large document, each case in a fresh process
// (this program started again with kMemoryCaseFlag): the growth of the
// process's peak resident size (VmHWM) from just before the job to its end.
// The records the job reads into or writes from are allocated before, so the
// figure is what the job itself needs: the file's bytes, the text, the tree or
// buffers, and mapped file pages, which count as resident.

#include <cstddef>
#include <string>

namespace peers {

inline constexpr const char* kMemoryCaseFlag = "--peers_memory_case";

// The child: `<program> --peers_memory_case read|write <contender> <file> <pens>`.
// Prints the growth in bytes; exit code 1 when the job fails.
int memoryCaseMain(int argc, char** argv);

// Writes a base64 document of about `megabytes` of JSON text into `folder`,
// measures reading and writing it by every contender, and prints a Markdown
// table of peak memory ÷ JSON text.
void printMemoryTable(double megabytes, const std::string& folder);

}  // namespace peers
