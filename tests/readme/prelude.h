// What the README's C++ snippets take from the host program around them.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <param/param.h>

extern param::SeriObject obj;
extern const param::SeriObject someObject;
extern const param::PenParam pen;
extern const std::vector<param::MPointF2d> polyline;
extern const std::vector<char> bytes;
extern const std::string json;
extern param::LmcParam board;
extern param::PenArray pens;
extern const param::SeriObject boardObject;
extern const param::SeriObject penObject;
void show(const std::string& path, const char* reason, const std::string& found,
          const std::string& kept);
void myLog(int level, std::string_view tag, std::string_view line);
void report(int state, const char* error);
