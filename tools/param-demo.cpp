// The demo that scripts/run.sh runs: starts the library, builds a parameter
// document (pens, board, colours), wobbles and transforms a square with a pen,
// writes the document in every encoding, reads each file back and checks that
// it is the same document.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

#include <array>

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

// Stops the demo with the library's description of a step that failed.
void require(param::SdkError e, const char* what) {
  if (e == 0) return;
  std::printf("%s failed: %s (0x%x)\n", what, param::errorText(e), e);
  std::exit(1);
}

double msSince(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

param::PenArray buildPens() {
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
      "pens:     %zu pens; pen 3 \"%s\": power %d%%, %.1f kHz, %d passes, "
      "circle wobble %.2f mm every %.2f mm\n",
      pens.size(), cut.penName, cut.laserPower, static_cast<double>(cut.laserFreq), cut.markCount,
      static_cast<double>(cut.wobble.wobbleDiaX), static_cast<double>(cut.wobble.wobbleSpace));
  return pens;
}

param::LmcParam buildBoard() {
  param::LmcParam board;
  board.laserParam.laserType = 4;
  board.laserParam.fiberPar.powerMap[10] = 96.5f;
  board.galvoParam.galvoSize = 160.0;
  board.galvoParam.setResolution(65535);
  board.flyParam.flowFixSpeed = 120.0f;
  std::printf(
      "board:    laser type %d, %.0f mm field (%.3f units/mm), %zu extension axes, "
      "conveyor %.0f mm/s\n",
      board.laserParam.laserType, board.galvoParam.galvoSize, board.galvoParam.unitsPerMm,
      board.axParArray.size(), static_cast<double>(board.flyParam.flowFixSpeed));
  return board;
}

// A 10 mm square marked with the pen's wobble, and where it lands on the field
// when the job is rotated by 30 degrees about its centre.
void showGeometry(const param::PenParam& pen) {
  const param::PathF2d square = {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}};
  param::WobblePathProc wobble;
  wobble.setWobblePar(pen.wobble);
  std::vector<param::Point2d> wobbled;
  wobble.doWobble(square, wobbled);
  std::printf("wobble:   pen %d turns a 10 mm square into %zu points\n", pen.penId, wobbled.size());

  const param::Matrix2d turn = param::Matrix2d::makeRotate(30, 5, 5);
  param::PathF2d outline = square;
  turn.mapPoints(outline);
  const param::Rect2d box = param::CalcUtil::bounds(outline);
  std::vector<param::Point2d> clipped;
  param::CalcUtil::secantLineByRect(outline[0], outline[2], {0, 0, 10, 10}, clipped);
  std::printf(
      "geometry: rotated 30 degrees about its centre it spans %.3f x %.3f mm; its "
      "diagonal crosses the original square from (%.3f, %.3f) to (%.3f, %.3f)\n",
      box.width, box.height, clipped[0].x, clipped[0].y, clipped[1].x, clipped[1].y);
}

param::SeriDocument buildDocument(const param::PenArray& pens) {
  param::SeriDocument doc(utils::JsonSave::instance, "");
  param::SeriObject table(utils::JsonSave::instance);
  require(pens.save(table), "saving the pens");
  doc.setSeriObject("pens", std::move(table));
  param::SeriObject board(utils::JsonSave::instance);
  require(buildBoard().save(board), "saving the board");
  doc.setSeriObject("board", std::move(board));

  auto colors = param::ColorMgr::instance();
  for (int i = 0; i < 4; ++i)
    (*colors)[static_cast<std::size_t>(i)] = utils::Color(
        utils::Color::HSV,
        std::array<std::uint8_t, 3>{static_cast<std::uint8_t>(i * 60), 255, 255}.data(), 3);
  param::SeriObject palette(utils::JsonSave::instance);
  require(colors->save(palette), "saving the colours");
  doc.setSeriObject("colors", std::move(palette));
  std::printf("colours:  %zu pen colours from the colour table\n", colors->size());
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

  // The library's log lines, in order with the demo's own output.
  utils::Logger::setSink([](utils::LogLevel level, std::string_view tag, std::string_view line) {
    if (level >= utils::LogLevel::Warning) {
      std::printf("log:      [%.*s] %.*s\n", static_cast<int>(tag.size()), tag.data(),
                  static_cast<int>(line.size()), line.data());
    }
  });

  // Library start-up: stored record defaults come from a file in the demo folder
  // (missing on the first run, which the library logs and then creates).
  if (param::SdkError e = param::load({folder / "defaults.cfg"})) {
    std::printf("param::load failed: %s\n", param::errorText(e));
    return 1;
  }
  param::FillLayerParam hatch;
  hatch.fillSpace = 0.05;
  require(param::DefaultParamMgr::storeDefault("struct FillLayerParam", hatch),
          "storing a default");
  std::printf("defaults: new fill layers now hatch every %.2f mm (stored in defaults.cfg)\n",
              param::FillLayerParam().fillSpace);

  const param::PenArray pens = buildPens();
  param::SeriDocument doc = buildDocument(pens);
  showGeometry(pens[3]);
  std::printf("files:\n");
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

  param::unload();
  if (keep || !temporary) {
    std::printf("files are in %s (inspect them with paramdoc show <file>)\n",
                folder.string().c_str());
  } else {
    fs::remove_all(folder, ec);
  }
  std::printf("%s\n", failures == 0 ? "every document read back identical" : "FAILURES");
  return failures == 0 ? 0 : 1;
}
