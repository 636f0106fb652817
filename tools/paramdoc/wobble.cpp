// paramdoc wobble: draws a pen's wobble as an SVG picture: the path, the
// wobbled path the beam follows, where it starts, and a caption with the
// figure and its sizes.
#include <cmath>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include <boost/json/value.hpp>

#include <param/params/penArray.h>
#include <param/shape/calcUtil.h>
#include <param/shape/matrix2d.h>
#include <param/wobble/wobblePathProc.h>

#include "command.h"
#include "document.h"
#include "jsonTree.h"

namespace paramdoc {
namespace {

using param::PathF2d;
using param::Point2d;

constexpr double kPi = 3.14159265358979323846;
// More points than this make a picture nobody can look at.
constexpr double kMaxPoints = 2'000'000;

const std::map<std::string, int> kFigures = {
    {"circle", 0}, {"sine", 1}, {"ellipse", 2}, {"eight-across", 3}, {"eight-along", 4}};

PathF2d builtInShape(const std::string& shape, double size) {
  PathF2d path;
  if (shape == "line") {
    path = {{0, 0}, {size, 0}};
  } else if (shape == "circle") {
    const double r = size / 2;
    for (int i = 0; i <= 96; ++i) {
      const double a = 2 * kPi * (i % 96) / 96;
      path.emplace_back(r + r * std::cos(a), r + r * std::sin(a));
    }
  } else if (shape == "star") {
    const double outer = size / 2, inner = outer * 0.382;
    for (int i = 0; i <= 10; ++i) {
      const double a = kPi / 2 + kPi * (i % 10) / 5;
      const double r = i % 2 == 0 ? outer : inner;
      path.emplace_back(outer + r * std::cos(a), outer + r * std::sin(a));
    }
  } else {
    path = {{0, 0}, {size, 0}, {size, size}, {0, size}, {0, 0}};
  }
  return path;
}

// A JSON list of points, each [x, y] or {"x": x, "y": y}.
bool pointsFromJson(const std::string& text, PathF2d& out, std::string& error) {
  boost::json::value list;
  if (!parseJson(text, list, error)) return false;
  if (!list.is_array() || list.get_array().size() < 2) {
    error = "give a list of at least two points, as in [[0,0],[10,0],[10,5]]";
    return false;
  }
  for (const boost::json::value& p : list.get_array()) {
    const boost::json::value *x = nullptr, *y = nullptr;
    if (p.is_array() && p.get_array().size() == 2) {
      x = &p.get_array()[0];
      y = &p.get_array()[1];
    } else if (p.is_object()) {
      x = p.get_object().if_contains("x");
      y = p.get_object().if_contains("y");
    }
    auto number = [](const boost::json::value* v) {
      return v != nullptr && (v->is_double() || v->is_int64() || v->is_uint64());
    };
    if (!number(x) || !number(y)) {
      error = "a point is [x, y] or {\"x\": x, \"y\": y}, not " + formatJson(p);
      return false;
    }
    out.emplace_back(x->to_number<double>(), y->to_number<double>());
  }
  return true;
}

// A size as people write it: 0.5, 10, 15.22.
std::string number(double v, int digits = 6) {
  char text[32];
  std::snprintf(text, sizeof text, "%.*g", digits, v);
  return text;
}

std::string escapeXml(const std::string& text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        out += c;
    }
  }
  return out;
}

std::string figureText(const param::WobbleParam& w) {
  const std::string x = number(w.wobbleDiaX), y = number(w.wobbleDiaY);
  std::string text;
  switch (w.wobbleType) {
    case 0:
      text = "circle \u00d8 " + x + " mm";
      break;
    case 1:
      text = "sine " + y + " mm peak to peak";
      break;
    case 2:
      text = "ellipse " + x + " \u00d7 " + y + " mm (along \u00d7 across)";
      break;
    case 3:
      text = "figure-eight across the path, " + x + " \u00d7 " + y + " mm";
      break;
    default:
      text = "figure-eight along the path, " + x + " \u00d7 " + y + " mm";
  }
  return text + ", period " + number(w.wobbleSpace) + " mm";
}

std::string polyline(const std::vector<Point2d>& points, const param::Matrix2d& toPicture,
                     const char* style) {
  std::string out = "<polyline fill=\"none\" " + std::string(style) + " points=\"";
  char xy[48];
  for (const Point2d& p : points) {
    const Point2d q = toPicture.mapPoint(p);
    std::snprintf(xy, sizeof xy, "%.1f,%.1f ", q.x, q.y);
    out += xy;
  }
  if (!points.empty()) out.pop_back();
  return out + "\"/>\n";
}

// The picture: the path in blue under the wobbled path in red, the start
// marked in green, and two caption lines.
std::string drawSvg(const PathF2d& path, const std::vector<Point2d>& wobbled, int width,
                    const std::string& figure, const std::string& subject) {
  PathF2d all = path;
  all.insert(all.end(), wobbled.begin(), wobbled.end());
  const param::Rect2d box = param::CalcUtil::bounds(all);
  const double margin = 24, caption = 52;
  const double extent = std::max({box.width, box.height, 1e-9});
  const double scale = (width - 2 * margin) / extent;
  const int height = static_cast<int>(std::ceil(box.height * scale + 2 * margin + caption));
  // Millimetres, y up, to picture pixels, y down.
  param::Matrix2d toPicture = param::Matrix2d::makeTranslate(-box.x, -(box.y + box.height));
  toPicture.scale(0, 0, scale, -scale).translate(margin, margin);

  std::string svg;
  char line[512];
  std::snprintf(line, sizeof line,
                "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%d\" height=\"%d\" "
                "viewBox=\"0 0 %d %d\" font-family=\"sans-serif\" font-size=\"13\">\n"
                "<rect width=\"100%%\" height=\"100%%\" fill=\"white\"/>\n",
                width, height, width, height);
  svg += line;
  svg += polyline(path, toPicture, "stroke=\"#1f77b4\" stroke-width=\"3\" stroke-opacity=\"0.45\"");
  svg += polyline(wobbled, toPicture, "stroke=\"#d62728\" stroke-width=\"1\"");
  const Point2d start = toPicture.mapPoint(wobbled.empty() ? path.front() : wobbled.front());
  std::snprintf(line, sizeof line,
                "<circle cx=\"%.2f\" cy=\"%.2f\" r=\"5\" fill=\"#2ca02c\"/>\n"
                "<text x=\"%.2f\" y=\"%.2f\" fill=\"#2ca02c\">start</text>\n",
                start.x, start.y, start.x + 8, start.y - 8);
  svg += line;
  const double y = height - caption + 18;
  std::snprintf(line, sizeof line,
                "<line x1=\"%g\" y1=\"%g\" x2=\"%g\" y2=\"%g\" stroke=\"#d62728\"/>\n"
                "<line x1=\"%g\" y1=\"%g\" x2=\"%g\" y2=\"%g\" stroke=\"#1f77b4\" "
                "stroke-width=\"3\" stroke-opacity=\"0.45\"/>\n",
                margin, y - 4, margin + 18, y - 4, margin, y + 16, margin + 18, y + 16);
  svg += line;
  svg += "<text x=\"" + number(margin + 24) + "\" y=\"" + number(y) + "\">" + escapeXml(figure) +
         "</text>\n";
  svg += "<text x=\"" + number(margin + 24) + "\" y=\"" + number(y + 20) + "\">" +
         escapeXml(subject) + "</text>\n</svg>\n";
  return svg;
}

class Wobble : public Command {
 public:
  void define(CLI::App& cmd) override {
    CLI::Option* doc = cmd.add_option("--doc", doc_, "Take the wobble of a pen in this document");
    cmd.add_option("--member", member_, "The document's pen table member")
        ->capture_default_str()
        ->needs(doc);
    cmd.add_option("--pen", pen_, "Pen number (penId) in that table")
        ->capture_default_str()
        ->needs(doc);
    std::vector<std::string> figures;
    for (const auto& [name, type] : kFigures)
      figures.push_back(name);
    figure_ =
        cmd.add_option("--figure", figureName_, "Wobble figure (default: the pen's, else circle)")
            ->check(CLI::IsMember(figures));
    diaX_ = cmd.add_option("--dia-x", w_.wobbleDiaX, "Size along the path, mm (default 1)");
    diaY_ = cmd.add_option("--dia-y", w_.wobbleDiaY, "Size across the path, mm (default 1)");
    space_ = cmd.add_option("--space", w_.wobbleSpace,
                            "Period: path length of one figure, mm (default 0.5)");
    CLI::Option* shape = cmd.add_option("--shape", shape_, "Built-in path")
                             ->check(CLI::IsMember({"line", "square", "circle", "star"}))
                             ->capture_default_str();
    CLI::Option* size = cmd.add_option("--size", size_, "Size of the built-in path, mm")
                            ->capture_default_str()
                            ->check(CLI::PositiveNumber);
    cmd.add_option("--points", points_, "The path as a JSON list of points, [[x,y],...]")
        ->excludes(shape)
        ->excludes(size);
    cmd.add_option("-o,--output", output_, "SVG file to write ('-': standard output)")
        ->capture_default_str();
    cmd.add_option("--width", width_, "Picture width in pixels")
        ->capture_default_str()
        ->check(CLI::Range(100, 10000));
    cmd.footer(
        "Options given override the pen's values. Examples:\n"
        "  paramdoc wobble --figure circle --dia-x 1 --space 0.5 -o circle.svg\n"
        "  paramdoc wobble --doc job.cfg --pen 3 --shape star --size 20 -o pen3.svg\n"
        "  paramdoc wobble --figure eight-along --points '[[0,0],[8,0],[8,4]]' > eight.svg");
  }

  int run() override {
    param::WobbleParam w;
    std::string subject;
    if (!doc_.empty()) {
      if (!penWobble(w, subject)) return kFailure;
    }
    if (figure_->count() > 0) w.wobbleType = kFigures.at(figureName_);
    if (diaX_->count() > 0) w.wobbleDiaX = w_.wobbleDiaX;
    if (diaY_->count() > 0) w.wobbleDiaY = w_.wobbleDiaY;
    if (space_->count() > 0) w.wobbleSpace = w_.wobbleSpace;
    for (float v : {w.wobbleDiaX, w.wobbleDiaY, w.wobbleSpace}) {
      if (!std::isfinite(v) || v < 0) return usage("wobble", "sizes are finite and not negative");
    }
    if (w.wobbleSpace < 0.001f) return usage("wobble", "a period below 0.001 mm makes no wobble");

    PathF2d path;
    std::string pathText;
    if (!points_.empty()) {
      std::string error;
      if (!pointsFromJson(points_, path, error)) return usage("wobble", "--points: " + error);
      pathText = std::to_string(path.size()) + "-point path";
    } else {
      path = builtInShape(shape_, size_);
      pathText = shape_;
    }
    const param::Rect2d box = param::CalcUtil::bounds(path);
    pathText += shape_ == "line" && points_.empty()
                    ? " " + number(box.width, 4) + " mm"
                    : " " + number(box.width, 4) + " \u00d7 " + number(box.height, 4) + " mm";
    double length = 0;
    for (std::size_t i = 1; i < path.size(); ++i) {
      length += param::CalcUtil::distance(path[i - 1], path[i]);
    }
    if (!std::isfinite(length) || length / w.wobbleSpace * 48 > kMaxPoints) {
      return usage("wobble", "the path is too long for its period to draw; give a larger --space");
    }

    w.bEnable = true;  // a pen with wobble off still shows what it would do
    param::WobblePathProc proc;
    proc.setWobblePar(w);
    std::vector<Point2d> wobbled;
    proc.doWobble(path, wobbled);

    subject = pathText + ", " + std::to_string(wobbled.size()) + " points" + subject;
    return writeOutput(output_, drawSvg(path, wobbled, width_, figureText(w), subject)) ? kSuccess
                                                                                        : kFailure;
  }

 private:
  // The wobble of pen `pen_` in the table `member_` of the document `doc_`.
  bool penWobble(param::WobbleParam& w, std::string& subject) const {
    Input input;
    if (!input.open(doc_)) return false;
    param::SeriDocument doc(utils::JsonLoad::instance);
    if (!loadDocument(input, doc)) return false;
    param::SeriObject table(utils::JsonLoad::instance);
    if (param::SdkError e = doc.getSeriObject(member_.c_str(), table)) {
      return failed(input.name(), "member \"" + member_ + "\": " + describe(e));
    }
    param::PenArray pens;
    if (param::SdkError e = pens.load(table)) {
      return failed(input.name(), "member \"" + member_ + "\": " + describe(e));
    }
    const std::int32_t at = pens.indexOf(pen_);
    if (at < 0) {
      return failed(input.name(), "\"" + member_ + "\" has no pen " + std::to_string(pen_) + " (" +
                                      std::to_string(pens.size()) + " pens)");
    }
    w = pens[static_cast<std::size_t>(at)].wobble;
    subject = "; pen " + std::to_string(pen_) + " of " + input.name() +
              (w.bEnable ? "" : " (wobble off on this pen)");
    return true;
  }

  std::string doc_, member_ = "pens", figureName_, shape_ = "square", points_, output_ = "-";
  unsigned pen_ = 0;
  double size_ = 10;
  int width_ = 600;
  param::WobbleParam w_;
  CLI::Option *figure_ = nullptr, *diaX_ = nullptr, *diaY_ = nullptr, *space_ = nullptr;
};

}  // namespace

PARAMDOC_COMMAND(Wobble, "wobble", "Draw a pen's wobble as an SVG picture")

}  // namespace paramdoc
