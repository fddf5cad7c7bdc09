// Control arrays: elements of one kind under one name, some there by design, others loaded and
// unloaded at run time.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "surface/control.h"

namespace zolt20 {

/// What a surface does with an array without knowing the kind of its elements.
class AnyControlArray {
 public:
  /// Gives the element the size, place and style of element 0, Visible False, an empty text and the
  /// last place in the tab order. Raises `loaded` for an element that is there already.
  virtual void Load(Integer index) = 0;
  /// Raises `element` for an element that is not loaded, `unload` for one that exists by design.
  virtual void Unload(Integer index) = 0;

 protected:
  ~AnyControlArray() = default;
};

template <typename Kind>
class ControlArray final : public AnyControlArray {
 public:
  ControlArray(Surface& surface, ControlName name) : surface_(surface), name_(name) {}
  ControlArray(const ControlArray&) = delete;
  ControlArray& operator=(const ControlArray&) = delete;

  /// Raises `element` for an index that is not loaded.
  Kind& operator()(Integer index) { return Loaded(index); }
  const Kind& operator()(Integer index) const { return Loaded(index); }

  /// The highest loaded index.
  Integer UpperBound() const { return elements_.rbegin()->first; }

  void Load(Integer index) override;
  void Unload(Integer index) override;

 private:
  friend class Surface;

  struct Element {
    Element(Surface& surface, const Design& like, int index);

    std::string text;  // owns what design.text views; unused if the element exists by design
    Design design;
    Kind control;
  };

  Kind& Loaded(Integer index) const {
    const auto found = elements_.find(index.value());
    if (found == elements_.end()) Raise(ErrorKind::kElement);
    return found->second->control;
  }

  // An element that exists by design.
  Kind& Add(const Design& design) {
    return elements_.emplace(design.index, std::make_unique<Element>(surface_, design, kNoIndex))
        .first->second->control;
  }

  Surface& surface_;
  ControlName name_;
  std::map<int, std::unique_ptr<Element>> elements_;
};

}  // namespace zolt20
