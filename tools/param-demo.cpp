// The demo that scripts/run.sh runs: builds a parameter document, writes it in
// every encoding, reads each file back and checks that it is the same document.
#include <chrono>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include <param/param.h>

namespace fs = std::filesystem;

namespace {

struct Encoding {
  const char* name;
  const char* file;
  param::SeriOption option;
};

const std::vector<Encoding> kEncodings = {
    {"base64", "demo-base64.cfg", param::SeriOption(param::SeriOption::Base64)},
    {"xor (key 1)", "demo-xor.cfg", param::SeriOption(param::SeriOption::Xor, 0, 1)},
    {"lzma", "demo-lzma.cfg", param::SeriOption(param::SeriOption::Lzma)},
    {"aes-128-gcm", "demo-aes-gcm.cfg", param::SeriOption(param::SeriOption::Aes, 0, 2)},
    {"aes-128-cfb", "demo-aes-cfb.cfg", param::SeriOption(param::SeriOption::Aes, 1, 3)},
    {"aes-128-cbc", "demo-aes-cbc.cfg", param::SeriOption(param::SeriOption::Aes, 2, 0)},
    {"aes-128-ctr", "demo-aes-ctr.cfg", param::SeriOption(param::SeriOption::Aes, 3, 1)},
};

double msSince(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

param::SeriDocument buildDocument() {
  param::PenArray pens(16);
  auto& cut = pens[3];
  std::snprintf(cut.penName, sizeof cut.penName, "deep cut");
  cut.laserPower = 75;
  cut.laserFreq = 45.5f;
  cut.markCount = 3;
  cut.wobble.bEnable = true;
  cut.wobble.wobbleDiaX = 0.4f;
  cut.wobble.wobbleSpace = 0.05f;
  std::printf(
      "built a pen table of %zu pens; pen 3 \"%s\": power %d%%, %.1f kHz, %d passes, "
      "circle wobble %.2f mm every %.2f mm\n",
      pens.size(), cut.penName, cut.laserPower, static_cast<double>(cut.laserFreq), cut.markCount,
      static_cast<double>(cut.wobble.wobbleDiaX), static_cast<double>(cut.wobble.wobbleSpace));

  param::SeriDocument doc(utils::JsonSave::instance, "");
  param::SeriObject table(utils::JsonSave::instance);
  pens.save(table);
  doc.setSeriObject("pens", std::move(table));
  return doc;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{
      "param demo: builds a parameter document, writes it in every encoding and "
      "reads each file back."};
  std::string dir;
  bool keep = false;
  app.add_option("--dir", dir, "Folder for the document files (default: a new temporary folder)");
  app.add_flag("--keep", keep, "Keep the files after the demo");
  CLI11_PARSE(app, argc, argv);

  std::printf("param %s\n", utils::Version::g_sdkBuildVersion.toString().c_str());
  const bool temporary = dir.empty();
  const fs::path folder =
      temporary ? fs::temp_directory_path() / ("param-demo-" + std::to_string(std::time(nullptr)))
                : fs::path(dir);
  std::error_code ec;
  fs::create_directories(folder, ec);

  param::SeriDocument doc = buildDocument();
  int failures = 0;
  std::string reference;
  for (const Encoding& enc : kEncodings) {
    const fs::path file = folder / enc.file;
    auto start = std::chrono::steady_clock::now();
    param::SdkError e = doc.writeToFile(file.string(), enc.option);
    const double writeMs = msSince(start);
    if (reference.empty()) reference = doc.stringfy();  // now with the information block
    if (e != 0) {
      std::printf("  %-12s write failed: %s (0x%x)\n", enc.name, param::errorText(e), e);
      ++failures;
      continue;
    }
    param::SeriDocument back(utils::JsonLoad::instance);
    start = std::chrono::steady_clock::now();
    e = back.readFromFile(file.string());
    const double readMs = msSince(start);
    const bool same = e == 0 && back.stringfy() == reference;
    std::printf("  %-12s %-22s %7ju bytes  write %6.2f ms  read %6.2f ms  %s\n", enc.name,
                file.filename().string().c_str(), static_cast<std::uintmax_t>(fs::file_size(file)),
                writeMs, readMs,
                same ? "read back identical"
                : e  ? param::errorText(e)
                     : "read back DIFFERENT");
    if (!same) ++failures;
  }

  if (keep || !temporary) {
    std::printf("files are in %s (inspect them with paramdoc show <file>)\n",
                folder.string().c_str());
  } else {
    fs::remove_all(folder, ec);
  }
  std::printf("%s\n", failures == 0 ? "every document read back identical" : "FAILURES");
  return failures == 0 ? 0 : 1;
}
