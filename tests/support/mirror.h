// A test double of a face: it keeps a copy of the surface by the surface's notices alone, and can
// compare the copy with the surface.
//
// It reads the surface only as a face does: at a notice, and just what that notice names. So a
// difference means that a notice was missing, came at the wrong time, or named the wrong thing.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "surface/surface.h"

namespace zolt20::tests {

class Mirror final : public SurfaceObserver {
 public:
  /// Reads the whole surface once. The caller has to add the mirror as an observer of the surface.
  explicit Mirror(const Surface& surface);

  /// The first thing in which the mirror and the surface differ, or "".
  std::string Difference() const;

  void ControlChanged(const Control& control, Property property) noexcept override;
  void RowsAboutToChange(const Control& list, const RowChange& change) noexcept override;
  void RowsChanged(const Control& list, const RowChange& change) noexcept override;
  void MarksChanged(const Control& list, int first, int count) noexcept override;
  void FocusChanged(const Control* control) noexcept override;
  void TabOrderChanged(int first, int last) noexcept override;
  void ElementLoaded(const Control& element) noexcept override;
  void ElementUnloading(const Control& element) noexcept override;
  void StateReplaced() noexcept override;

 private:
  struct Image {
    bool enabled = false;
    bool visible = false;
    int tabIndex = -1;
    Geometry place;
    String text;
    int selStart = 0;
    unsigned backColor = 0;
    String caption;
    int value = 0;
    int max = 0;
    int tab = 0;
    int listIndex = -1;
    bool highlight = false;
    std::vector<String> rows;
    std::vector<bool> marks;
  };

  static void Read(const Control& control, Property property, Image& image);
  static void ReadRows(const Control& list, int first, int count, Image& image);
  static Image ReadAll(const Control& control);
  static std::string Difference(const Image& mine, const Image& theirs);
  Image& Of(const Control& control);
  void Complain(const std::string& complaint);

  const Surface& surface_;
  std::map<std::string, Image> images_;
  std::string focus_;
  std::optional<std::string> rowsUnderChange_;
  RowChange announced_{};
  std::string complaint_;
};

/// The first rule of the surface that does not hold, or "".
std::string BrokenRule(const Surface& surface);

}  // namespace zolt20::tests
