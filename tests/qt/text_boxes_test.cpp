// The text boxes: the shown text, the text that they hand over after an edit, and that line ends
// stay as they are outside the edit.
#include "faces/qt/text_boxes.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <algorithm>
#include <memory>
#include <random>
#include <vector>

#include "faces/qt/qt_text.h"
#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using qt::LineBox;
using qt::LinesBox;
using qt::ToQt;

constexpr char16_t kLoneHigh = 0xD83D;
constexpr char16_t kLoneLow = 0xDE00;

class LinesBoxTest : public ::testing::Test {
 protected:
  LinesBoxTest() {
    box.resize(300, 120);
    box.show();
    box.activateWindow();
    box.setFocus();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
  }

  void Caret(int place) { Select(place, place); }
  /// Selects what lies between two places of the document, where a line end is one character.
  void Select(int from, int to) {
    QTextCursor cursor(box.document());
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    box.setTextCursor(cursor);
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(&box, key, modifiers);
  }
  void Type(const char* text) { QTest::keyClicks(&box, QString::fromLatin1(text)); }
  void Paste(const String& text) {
    QGuiApplication::clipboard()->setText(ToQt(text));
    QTest::keySequence(&box, QKeySequence::Paste);
  }
  static String Copied() { return qt::FromQt(QGuiApplication::clipboard()->text()); }

  /// The lines as they are drawn.
  std::vector<String> Lines() const {
    std::vector<String> lines;
    for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next())
      lines.push_back(qt::FromQt(block.text()));
    return lines;
  }

  LinesBox box;
  QSignalSpy typed{&box, &LinesBox::Typed};
};

using Strings = std::vector<String>;

TEST_F(LinesBoxTest, ShowsEachKindOfLineEndAsOneAndKeepsIt) {
  const String text = u"a\r\nb\rc\nd\u2029e\n\rf";
  box.Show(text);
  EXPECT_EQ(Lines(), (Strings{u"a", u"b", u"c", u"d", u"e", u"", u"f"}));
  EXPECT_EQ(box.Text(), text);
  EXPECT_EQ(typed.count(), 0) << "what is shown was not typed";
}

TEST_F(LinesBoxTest, KeepsEveryCharacter) {
  const String text{u'a',   u'\0',     u'\t',   kLoneHigh, u'b',      kLoneLow, 0xD83D,
                    0xDE00, u'\u2028', u'\xA0', u'\xFFFC', u'\xFFFE', u'\x7F',  u'\x1B'};
  box.Show(text);
  EXPECT_EQ(box.Text(), text);
  Caret(0);
  Type("x");
  EXPECT_EQ(box.Text(), Concat(u"x", text));
  Press(Qt::Key_End, Qt::ControlModifier);
  Type("y");
  EXPECT_EQ(box.Text(), Concat(u"x", text, u"y"));
}

TEST_F(LinesBoxTest, TypingInTheMiddleLeavesTheOtherLineEnds) {
  box.Show(u"a\rb\nc\r\nd\u2029e");
  Caret(4);  // in front of c
  Type("xy");
  EXPECT_EQ(box.Text(), u"a\rb\nxyc\r\nd\u2029e");
  Press(Qt::Key_Backspace);
  EXPECT_EQ(box.Text(), u"a\rb\nxc\r\nd\u2029e");
  Press(Qt::Key_Delete);
  EXPECT_EQ(box.Text(), u"a\rb\nx\r\nd\u2029e");
  EXPECT_EQ(typed.count(), 4);
}

TEST_F(LinesBoxTest, EnterGivesALineEndOfTwoCharactersWithShiftAsWell) {
  box.Show(u"a\nb");
  Caret(1);
  Press(Qt::Key_Return);
  Press(Qt::Key_Enter, Qt::KeypadModifier);
  Press(Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(box.Text(), u"a\r\n\r\n\r\n\nb");
  EXPECT_EQ(Lines(), (Strings{u"a", u"", u"", u"", u"b"}));
}

TEST_F(LinesBoxTest, BackspaceTakesAwayALineEndOfAnyKindAtOnce) {
  for (const String& end : {String(u"\r\n"), String(u"\r"), String(u"\n"), String(u"\u2029")}) {
    box.Show(Concat(u"a", end, u"b"));
    Caret(2);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(box.Text(), u"ab");
  }
}

TEST_F(LinesBoxTest, TwoLineEndsThatComeTogetherStayTwo) {
  box.Show(u"a\rx\nb");
  Caret(3);
  Press(Qt::Key_Backspace);
  EXPECT_EQ(Lines(), (Strings{u"a", u"", u"b"}));
  Type("y");
  EXPECT_EQ(Lines(), (Strings{u"a", u"y", u"b"}));
  Press(Qt::Key_End, Qt::ControlModifier);
  Type("z");
  EXPECT_TRUE(box.Text().ends_with(u"\nbz"));
  Caret(2);
  Type("w");
  EXPECT_EQ(Lines(), (Strings{u"a", u"wy", u"bz"}));
  EXPECT_TRUE(Holds(box.Text(), u"wy\nbz"));
  LinesBox fresh;
  fresh.Show(box.Text());
  EXPECT_EQ(fresh.document()->toPlainText(), box.document()->toPlainText());
}

TEST_F(LinesBoxTest, PastedLineEndsOfAnyKindBecomeThoseThatAreTyped) {
  box.Show(u"ab");
  Caret(1);
  Paste(u"1\r\n2\n3\r4\u20295\u20286");
  EXPECT_EQ(box.Text(), u"a1\r\n2\r\n3\r\n4\r\n5\r\n6b");
  EXPECT_EQ(typed.count(), 1);
}

TEST_F(LinesBoxTest, PasteOfTheSameTextIsToldAsWell) {
  box.Show(u"ab\r\nc");
  Select(0, 4);
  Paste(u"ab\nc");
  EXPECT_EQ(typed.count(), 1);
  EXPECT_EQ(box.Text(), u"ab\r\nc");
}

TEST_F(LinesBoxTest, PasteReplacesTheSelection) {
  box.Show(u"a\rb\nc");
  Select(1, 4);  // from behind a to in front of c
  Paste(u"x\ny");
  EXPECT_EQ(box.Text(), u"ax\r\nyc");
}

TEST_F(LinesBoxTest, AllCanBeReplacedAndTakenAway) {
  box.Show(u"a\rb\n");
  QTest::keySequence(&box, QKeySequence::SelectAll);
  Type("x");
  EXPECT_EQ(box.Text(), u"x");
  QTest::keySequence(&box, QKeySequence::SelectAll);
  Press(Qt::Key_Delete);
  EXPECT_EQ(box.Text(), u"");
  Type("z");
  EXPECT_EQ(box.Text(), u"z");
}

TEST_F(LinesBoxTest, CopyGivesTheTextOfTheControl) {
  box.Show(u"a\rb\nc\r\nd\u2028\xA0");
  QTest::keySequence(&box, QKeySequence::SelectAll);
  QTest::keySequence(&box, QKeySequence::Copy);
  EXPECT_EQ(Copied(), u"a\rb\nc\r\nd\u2028\xA0");
  Select(1, 4);
  QTest::keySequence(&box, QKeySequence::Copy);
  EXPECT_EQ(Copied(), u"\rb\n");
  EXPECT_EQ(typed.count(), 0);
}

TEST_F(LinesBoxTest, CutTakesOutWhatItCopies) {
  box.Show(u"a\rb\nc\r\nd");
  Select(2, 6);
  QTest::keySequence(&box, QKeySequence::Cut);
  EXPECT_EQ(Copied(), u"b\nc\r\n");
  EXPECT_EQ(box.Text(), u"a\rd");
}

TEST_F(LinesBoxTest, OwnUndoTakesBackWhatWasTyped) {
  box.Show(u"a\rb\nc");
  EXPECT_FALSE(box.HasOwnUndo());
  Caret(3);
  Type("xyz");
  EXPECT_TRUE(box.HasOwnUndo());
  QTest::keySequence(&box, QKeySequence::Undo);
  EXPECT_EQ(box.Text(), u"a\rb\nc");
  EXPECT_TRUE(box.HasOwnRedo());
  QTest::keySequence(&box, QKeySequence::Redo);
  EXPECT_EQ(box.Text(), u"a\rbxyz\nc");
}

TEST_F(LinesBoxTest, OwnUndoOfADeletionBringsTheLinesBack) {
  box.Show(u"a\r\nb\r\nc");
  Select(1, 4);
  Press(Qt::Key_Delete);
  EXPECT_EQ(box.Text(), u"ac");
  QTest::keySequence(&box, QKeySequence::Undo);
  EXPECT_EQ(box.Text(), u"a\r\nb\r\nc");
}

TEST_F(LinesBoxTest, WhatTheControlShowsForgetsTheOwnUndo) {
  box.Show(u"abc");
  Caret(3);
  Type("d");
  box.Show(u"other");
  EXPECT_FALSE(box.HasOwnUndo());
  EXPECT_FALSE(box.HasOwnRedo());
  QTest::keySequence(&box, QKeySequence::Undo);
  EXPECT_EQ(box.Text(), u"other");
  EXPECT_EQ(typed.count(), 1);
}

TEST_F(LinesBoxTest, ShowingWhatWasTypedKeepsTheOwnUndo) {
  box.Show(u"abc");
  Caret(3);
  Type("d");
  box.Show(u"abcd");
  EXPECT_TRUE(box.HasOwnUndo());
}

TEST_F(LinesBoxTest, WhatIsAppendedComesInSight) {
  String text;
  for (int line = 0; line < 300; ++line)
    text += u"line\r\n";
  box.Show(text);
  Caret(0);
  ASSERT_EQ(box.verticalScrollBar()->value(), 0);
  box.Show(Concat(text, u"more\r\nand more"));
  const QRect end = box.cursorRect(QTextCursor(box.document()->lastBlock()));
  EXPECT_TRUE(box.viewport()->rect().contains(end.center()));
}

TEST_F(LinesBoxTest, AnotherBeginningKeepsTheScrollPlaceAndTheCaret) {
  String text;
  for (int line = 0; line < 300; ++line)
    text += u"line\r\n";
  box.Show(text);
  Caret(500);  // line 100, of five characters each
  box.verticalScrollBar()->setValue(95);
  text[0] = u'L';
  box.Show(text);
  EXPECT_EQ(box.verticalScrollBar()->value(), 95);
  EXPECT_EQ(box.textCursor().position(), 500);
}

TEST_F(LinesBoxTest, LineEndsThatDifferInKindAloneAreTakenOver) {
  box.Show(u"a\r\nb");
  box.Show(u"a\rb");
  EXPECT_EQ(box.Text(), u"a\rb");
  Press(Qt::Key_End, Qt::ControlModifier);
  Type("x");
  EXPECT_EQ(box.Text(), u"a\rbx");
}

TEST_F(LinesBoxTest, CaretsCountTheCharactersOfTheControl) {
  box.Show(u"a\r\nb\rc");
  const std::pair<int, int> places[] = {{0, 0}, {1, 1}, {3, 2}, {4, 3}, {5, 4}, {6, 5}};
  for (const auto& [ofControl, ofDocument] : places) {
    box.ShowCaret(ofControl);
    EXPECT_EQ(box.textCursor().position(), ofDocument) << ofControl;
    EXPECT_FALSE(box.textCursor().hasSelection());
  }
}

TEST_F(LinesBoxTest, TabIsLeftToTheFormAndWithCtrlGoesIn) {
  QWidget form;
  QLineEdit other(&form);
  box.setParent(&form);
  box.show();
  form.show();
  form.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  box.setFocus();
  box.Show(u"ab");
  Caret(1);
  Press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(box.Text(), u"a\tb");
  Press(Qt::Key_Tab);
  EXPECT_EQ(box.Text(), u"a\tb");
  EXPECT_TRUE(other.hasFocus());
  box.setParent(nullptr);
}

TEST_F(LinesBoxTest, KeysThatOnlyMoveTheCaretChangeNothing) {
  box.Show(u"a\rb");
  for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_Up,
                            Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Escape, Qt::Key_F5}) {
    Press(key);
  }
  EXPECT_EQ(typed.count(), 0);
  EXPECT_EQ(box.Text(), u"a\rb");
}

// A text as a person counts it: characters, a line end of any kind being one.
class PlainModel {
 public:
  explicit PlainModel(const String& text) { Insert(0, text); }

  int Size() const { return static_cast<int>(characters_.size()); }
  String Between(int from, int to) const {
    String text;
    for (int at = from; at < to; ++at)
      text += characters_[static_cast<std::size_t>(at)];
    return text;
  }
  String Text() const { return Between(0, Size()); }
  void Remove(int from, int to) {
    characters_.erase(characters_.begin() + from, characters_.begin() + to);
    // What comes together must not become one line end.
    if (from > 0 && from < Size() && At(from - 1) == u"\r" && At(from) == u"\n")
      At(from - 1) = u"\r\n";
  }
  void Insert(int place, const String& text) {
    for (std::size_t at = 0; at < text.size(); ++at, ++place) {
      const bool isPair = text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
      characters_.insert(characters_.begin() + place, isPair ? u"\r\n" : String(1, text[at]));
      if (isPair) ++at;
    }
  }

 private:
  String& At(int place) { return characters_[static_cast<std::size_t>(place)]; }

  Strings characters_;
};

class RandomEditsTest : public LinesBoxTest, public ::testing::WithParamInterface<unsigned> {
 protected:
  unsigned Below(unsigned bound) { return static_cast<unsigned>(random_() % bound); }

  String SomeText() {
    const Strings pieces{u"a",  u"bc", u"\r",   u"\n",   u"\r\n",
                         u"\t", u" ",  u"\xE9", u"\xA0", String(1, kLoneHigh)};
    String text;
    for (unsigned count = Below(8); count > 0; --count)
      text += pieces[Below(static_cast<unsigned>(pieces.size()))];
    return text;
  }

  // A text as it is typed.
  static String Typed(const String& text) {
    String one = Replace(text, u"\r\n", u"\n");
    one = Replace(one, u"\r", u"\n");
    return Replace(one, u"\n", u"\r\n");
  }

  std::mt19937 random_{GetParam()};
};

TEST_P(RandomEditsTest, TheTextIsWhatAPlainStringWouldBe) {
  String shown = SomeText();
  box.Show(shown);
  PlainModel model(shown);
  for (int step = 0; step < 400; ++step) {
    const int from = static_cast<int>(Below(static_cast<unsigned>(model.Size()) + 1));
    const int to = from + static_cast<int>(
                              Below(std::min(4U, static_cast<unsigned>(model.Size() - from) + 1)));
    Select(from, to);
    const unsigned action = Below(7);
    SCOPED_TRACE("step " + std::to_string(step) + ", action " + std::to_string(action) + " at " +
                 std::to_string(from) + " to " + std::to_string(to) + " of \"" +
                 Narrow(model.Text()) + "\"");
    const auto put = [&](const String& text) {
      const String behind = model.Between(to, model.Size());
      const String before = model.Between(0, from);
      if (text.empty()) return model.Remove(from, to);
      model = PlainModel(before);
      model.Insert(model.Size(), text);
      model.Insert(model.Size(), behind);
    };
    switch (action) {
      case 0:
        Type("x");
        put(u"x");
        break;
      case 1:
        Press(Qt::Key_Return);
        put(u"\r\n");
        break;
      case 2:
        if (from == to) break;
        Press(step % 2 == 0 ? Qt::Key_Delete : Qt::Key_Backspace);
        put(u"");
        break;
      case 3: {
        const String pasted = SomeText();
        if (pasted.empty()) break;
        Paste(pasted);
        put(Typed(pasted));
        break;
      }
      case 4:
        if (from == to) break;
        QTest::keySequence(&box, QKeySequence::Cut);
        EXPECT_EQ(Copied(), model.Between(from, to));
        put(u"");
        break;
      case 5:
        shown = SomeText();
        box.Show(shown);
        model = PlainModel(shown);
        break;
      default:
        // Shown is what was typed, with something in front of it.
        shown = Concat(u"q", box.Text());
        box.Show(shown);
        model = PlainModel(shown);
    }
    ASSERT_EQ(Narrow(box.Text()), Narrow(model.Text()));
    ASSERT_EQ(box.document()->characterCount() - 1, model.Size());
    LinesBox fresh;
    fresh.Show(box.Text());
    ASSERT_EQ(fresh.document()->toRawText(), box.document()->toRawText());
  }
}

TEST_P(RandomEditsTest, OwnUndoAndRedoWalkTheSameTexts) {
  box.Show(u"one\r\ntwo\r\nthree");
  Strings texts{box.Text()};
  for (int step = 0; step < 30; ++step) {
    const int size = box.document()->characterCount() - 1;
    const int from = static_cast<int>(Below(static_cast<unsigned>(size) + 1));
    Select(from, std::min(size, from + 2));
    Paste(Below(2) == 0 ? u"p\r\nq" : u"r");
    texts.push_back(box.Text());
  }
  for (std::size_t step = texts.size(); step-- > 0;) {
    ASSERT_EQ(Narrow(box.Text()), Narrow(texts[step]));
    QTest::keySequence(&box, QKeySequence::Undo);
  }
  for (std::size_t step = 0; step < texts.size(); ++step) {
    ASSERT_EQ(Narrow(box.Text()), Narrow(texts[step]));
    QTest::keySequence(&box, QKeySequence::Redo);
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEditsTest, ::testing::Values(1U, 2U, 3U, 4U, 5U));

class LineBoxTest : public ::testing::Test {
 protected:
  void Make(bool byKeys) {
    box = std::make_unique<LineBox>(byKeys);
    QObject::connect(box.get(), &LineBox::Typed,
                     [this](const QString& text) { typed.push_back(qt::FromQt(text)); });
    QObject::connect(box.get(), &LineBox::KeyTyped, [this](int position, int count, int code) {
      keys.push_back({position, count, code});
    });
    box->show();
    box->activateWindow();
    box->setFocus();
    EXPECT_TRUE(QTest::qWaitForWindowActive(box.get()));
  }
  String Shown() const { return qt::FromQt(box->text()); }

  std::unique_ptr<LineBox> box;
  Strings typed;
  std::vector<std::vector<int>> keys;
};

TEST_F(LineBoxTest, ShowsEveryCharacterAndTellsNobody) {
  Make(false);
  for (const String& text :
       {String(u"a\r\nb\rc\nd"), String{u'a', u'\0', kLoneHigh, u'\t', kLoneLow},
        String(u"\u2028\u2029"), String(u"")}) {
    box->Show(text);
    EXPECT_EQ(Narrow(Shown()), Narrow(text));
  }
  EXPECT_EQ(typed, Strings{});
}

TEST_F(LineBoxTest, ALongTextIsShownToItsEnd) {
  Make(false);
  const String text(100000, u'x');
  box->Show(text);
  ASSERT_EQ(Shown().size(), text.size());
  QTest::keyClick(box.get(), Qt::Key_End);
  QTest::keyClick(box.get(), Qt::Key_Y);
  ASSERT_EQ(typed.size(), 1U);
  EXPECT_EQ(typed[0].size(), text.size() + 1);
}

TEST_F(LineBoxTest, TypingHandsOverTheWholeText) {
  Make(false);
  box->Show(u"a\rb");
  box->setCursorPosition(2);
  QTest::keyClicks(box.get(), QStringLiteral("xy"));
  EXPECT_EQ(typed, (Strings{u"a\rxb", u"a\rxyb"}));
  QTest::keyClick(box.get(), Qt::Key_Backspace);
  EXPECT_EQ(typed.back(), u"a\rxb");
}

TEST_F(LineBoxTest, PasteKeepsLineEnds) {
  Make(false);
  QGuiApplication::clipboard()->setText(QStringLiteral("1\r\n2\n3"));
  QTest::keySequence(box.get(), QKeySequence::Paste);
  EXPECT_EQ(typed, Strings{u"1\r\n2\n3"});
}

TEST_F(LineBoxTest, CutUndoAndRedoHandOverTheText) {
  Make(false);
  box->Show(u"abc");
  box->setSelection(1, 2);
  QTest::keySequence(box.get(), QKeySequence::Cut);
  QTest::keySequence(box.get(), QKeySequence::Undo);
  QTest::keySequence(box.get(), QKeySequence::Redo);
  EXPECT_EQ(typed, (Strings{u"a", u"abc", u"a"}));
}

TEST_F(LineBoxTest, ShowForgetsTheOwnUndo) {
  Make(false);
  QTest::keyClicks(box.get(), QStringLiteral("ab"));
  EXPECT_TRUE(box->isUndoAvailable());
  box->Show(u"other");
  EXPECT_FALSE(box->isUndoAvailable());
  QTest::keySequence(box.get(), QKeySequence::Undo);
  EXPECT_EQ(Shown(), u"other");
}

TEST_F(LineBoxTest, CaretStandsWhereItIsShown) {
  Make(false);
  box->Show(u"abc");
  for (const int caret : {0, 2, 3}) {
    box->ShowCaret(caret);
    EXPECT_EQ(box->cursorPosition(), caret);
  }
}

TEST_F(LineBoxTest, ByKeysEachKeyIsHandedOverAndNothingIsShown) {
  Make(true);
  box->Show(u"123");
  box->setCursorPosition(1);
  QTest::keyClicks(box.get(), QStringLiteral("5a"));
  QTest::keyClick(box.get(), Qt::Key_Backspace);
  box->setSelection(1, 2);
  QTest::keyClick(box.get(), Qt::Key_7);
  EXPECT_EQ(keys,
            (std::vector<std::vector<int>>{{1, 1, '5'}, {1, 1, 'a'}, {1, 1, 8}, {1, 3, '7'}}));
  EXPECT_EQ(Shown(), u"123");
  EXPECT_EQ(typed, Strings{});
}

TEST_F(LineBoxTest, ByKeysEnterIsAKeyAndSoIsACharacterOfAnyAlphabet) {
  Make(true);
  QTest::keyClick(box.get(), Qt::Key_Return);
  QTest::keyClick(box.get(), Qt::Key_Enter, Qt::KeypadModifier);
  QTest::sendKeyEvent(QTest::Click, box.get(), Qt::Key_unknown, QString(QChar(0xFF15)), {});
  QTest::keyClick(box.get(), Qt::Key_5, Qt::ControlModifier);  // a command of somebody's
  EXPECT_EQ(keys, (std::vector<std::vector<int>>{{0, 0, 13}, {0, 0, 13}, {0, 0, 0xFF15}}));
}

TEST_F(LineBoxTest, ByKeysWhatIsComposedIsAKeyForEachCharacterOnceItIsDone) {
  Make(true);
  box->Show(u"12");
  box->setSelection(0, 1);
  QInputMethodEvent composing(QStringLiteral("´"), {});
  QApplication::sendEvent(box.get(), &composing);
  EXPECT_TRUE(keys.empty());
  EXPECT_EQ(typed, Strings{});
  QInputMethodEvent done;
  done.setCommitString(QStringLiteral("é5"));
  QApplication::sendEvent(box.get(), &done);
  ASSERT_EQ(keys.size(), 2U);
  EXPECT_EQ(keys[0].back(), 0xE9);
  EXPECT_EQ(keys[1].back(), '5');
  EXPECT_EQ(typed, Strings{});
}

TEST_F(LineBoxTest, ByKeysOtherWaysOfEditingHandOverTheText) {
  Make(true);
  box->Show(u"123");
  box->setCursorPosition(0);
  QTest::keyClick(box.get(), Qt::Key_Delete);
  QGuiApplication::clipboard()->setText(QStringLiteral("9"));
  QTest::keySequence(box.get(), QKeySequence::Paste);
  EXPECT_EQ(typed, (Strings{u"23", u"923"}));
  EXPECT_TRUE(keys.empty());
}

}  // namespace
}  // namespace zolt20::tests
