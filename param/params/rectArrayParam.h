#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/seri/seriObject.h>

namespace param {

// Copies of a marked object in a rectangular grid. Members are named after
// their JSON keys and saved in this order.
//
// The default constructor applies the stored default "struct RectArrayParam"
// of the default-parameter manager on top of these values; before param::load
// it logs "please call DefaultParamMgr::load() first" and keeps them.
struct PARAM_API RectArrayParam {
  // Five layout switches in one byte, saved and compared as the byte.
  union Flags {
    struct Detail {
      std::uint8_t rowFirst : 1;     // number the copies row by row
      std::uint8_t zigzag : 1;       // every other row runs backwards
      std::uint8_t reverseRows : 1;  // rows from the top down
      std::uint8_t reverseCols : 1;  // columns from right to left
      std::uint8_t centred : 1;      // the grid is centred on the original

      Detail() = default;
      Detail(const Detail& other) = default;
      // Assignment copies the five switches one by one and leaves bits 5-7 of
      // the destination as they were.
      Detail& operator=(const Detail& other) {
        rowFirst = other.rowFirst;
        zigzag = other.zigzag;
        reverseRows = other.reverseRows;
        reverseCols = other.reverseCols;
        centred = other.centred;
        return *this;
      }
    };

    std::uint8_t value;
    Detail detail;

    Flags() : value(0) {}
    Flags(const Flags& other) : value(other.value) {}
    Flags& operator=(const Flags& other) {
      value = other.value;
      return *this;
    }
  };

  Flags flags;
  std::uint8_t rowCount = 2;
  std::uint8_t colCount = 2;
  double rowDistIncrease = 10.0;
  double colDistIncrease = 10.0;

  RectArrayParam();

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;

  // The flags byte and the counts equal, the distances within 0.0001.
  bool operator==(const RectArrayParam& other) const;
};

}  // namespace param
