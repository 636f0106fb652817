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
void myLog(int level, std::string_view tag, std::string_view line);
void report(int state, const char* error);
