// A minimal host: builds a pen table, writes it to a document and reads it back.
#include <cstdio>

#include <param/param.h>

int main(int argc, char** argv) {
  const char* file = argc > 1 ? argv[1] : "consumer.cfg";

  param::PenArray pens(4);
  pens[2].laserPower = 75;

  param::SeriDocument out(utils::JsonSave::instance, "");
  param::SeriObject table(utils::JsonSave::instance);
  if (pens.save(table) != 0 || out.setSeriObject("pens", std::move(table)) != 0) return 1;
  if (utils::SdkError e = out.writeToFile(file, param::SeriOption(param::SeriOption::Lzma))) {
    std::fprintf(stderr, "write failed: 0x%x\n", e);
    return 1;
  }

  param::SeriDocument in(utils::JsonLoad::instance);
  param::SeriObject loaded(utils::JsonLoad::instance);
  param::PenArray back;
  if (in.readFromFile(file) != 0 || in.getSeriObject("pens", loaded) != 0 ||
      back.load(loaded) != 0) {
    std::fprintf(stderr, "read failed\n");
    return 1;
  }
  std::printf("read %zu pens, pen 2 power %d\n", back.size(), back[2].laserPower);
  return back.size() == 4 && back[2].laserPower == 75 ? 0 : 1;
}
