// The description of the form: what has to stand in it, whatever a face makes of it.
#include "faces/shared/layout.h"

#include <map>
#include <string>

#include "surface/surface.h"
#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using faces::Part;
using faces::PartKind;

void Visit(const Part& part, const std::function<void(const Part&)>& look) {
  look(part);
  for (const Part& inner : part.parts)
    Visit(inner, look);
}

bool Surrounds(PartKind kind) {
  return kind == PartKind::kFrame || kind == PartKind::kOwn;
}

TEST(LayoutTest, EveryControlStandsInItOnce) {
  std::map<const Design*, int> times;
  Visit(faces::Layout(), [&](const Part& part) {
    if (part.kind == PartKind::kControl || Surrounds(part.kind)) ++times[part.control];
  });
  for (const Design& design : zolt20::kForm)
    EXPECT_EQ(times[&design], 1) << design.text;
  EXPECT_EQ(times.size(), zolt20::kForm.size());
}

// What a rectangle surrounds lies on the form; what a frame surrounds lies in it, and nothing else.
void ExpectFrames(const Part& part, ControlName around) {
  if (part.kind == PartKind::kControl || Surrounds(part.kind)) {
    EXPECT_EQ(part.control->frame, around) << part.control->text;
  }
  const bool isFrame = Surrounds(part.kind) && part.control->kind == Kind::Frame;
  for (const Part& inner : part.parts)
    ExpectFrames(inner, isFrame ? part.control->name : around);
}

TEST(LayoutTest, WhatIsInAFrameStandsInIt) {
  ExpectFrames(faces::Layout(), ControlName::kForm);
}

TEST(LayoutTest, WhatIsOnAPageStandsOnIt) {
  int found = 0;
  Visit(faces::Layout(), [&](const Part& part) {
    if (part.kind != PartKind::kPages) return;
    ASSERT_EQ(part.parts.size(), kPageCaptions.size());
    for (std::size_t page = 0; page < part.parts.size(); ++page) {
      Visit(part.parts[page], [&](const Part& inner) {
        if (inner.control == nullptr) return;
        EXPECT_EQ(inner.control->page, static_cast<int>(page)) << inner.control->text;
        ++found;
      });
    }
  });
  EXPECT_GT(found, 100);
}

TEST(LayoutTest, EveryPartThatSurroundsHasANameAndEveryLeafNoParts) {
  Visit(faces::Layout(), [](const Part& part) {
    const bool isLeaf = part.kind == PartKind::kControl || part.kind == PartKind::kFilter ||
                        part.kind == PartKind::kMarks || part.kind == PartKind::kTools ||
                        part.kind == PartKind::kSpace;
    EXPECT_EQ(part.parts.empty(), isLeaf) << part.name;
    EXPECT_TRUE(isLeaf || !part.name.empty());
    EXPECT_TRUE(part.kind != PartKind::kPair || part.parts.size() == 2) << part.name;
    EXPECT_GE(part.weight, 0) << part.name;
  });
}

TEST(LayoutTest, AFilterStandsAboveItsList) {
  int filters = 0;
  Visit(faces::Layout(), [&](const Part& part) {
    for (std::size_t i = 0; i < part.parts.size(); ++i) {
      if (part.parts[i].kind != PartKind::kFilter) continue;
      ++filters;
      ASSERT_LT(i + 1, part.parts.size());
      EXPECT_EQ(part.parts[i + 1].control, part.parts[i].control);
    }
  });
  EXPECT_EQ(filters, 5);
}

TEST(LayoutTest, TheListsOfTheOperandsAreSearched) {
  std::string searched;
  for (const Design& design : zolt20::kForm) {
    // What is typed while a list is open could be meant for its box else.
    if ((design.style & kEditable) != 0) {
      EXPECT_TRUE(faces::HasSearch(design)) << design.text;
    }
    if (!faces::HasSearch(design)) continue;
    EXPECT_EQ(design.kind, Kind::ComboBox) << design.text;
    searched += std::string(design.text) + " ";
  }
  EXPECT_EQ(searched, "cboWhereFields cboWhereFields1 ");
}

TEST(LayoutTest, NotesAreTheLabelsThatTellHowAPageIsUsed) {
  for (const Design& design : zolt20::kForm) {
    const bool isNumbered = design.kind == Kind::Label && design.frame == ControlName::kForm &&
                            !design.caption.empty() && design.caption.front() >= u'1' &&
                            design.caption.front() <= u'9';
    EXPECT_EQ(faces::IsNote(design), isNumbered) << design.text;
  }
}

TEST(LayoutTest, BoxesAndListsShowMoreThanOneLine) {
  EXPECT_EQ(faces::LeastLines(zolt20::kForm[kRowOf<ControlName::lsttables>]), 3);
  EXPECT_EQ(faces::LeastLines(zolt20::kForm[kRowOf<ControlName::txtStmt1>]), 2);
  EXPECT_EQ(faces::LeastLines(zolt20::kForm[kRowOf<ControlName::txtCond>]), 1);
}

}  // namespace
}  // namespace zolt20::tests
