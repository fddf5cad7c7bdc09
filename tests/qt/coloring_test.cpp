// Syntax colouring: which words of a line have a colour, and their formats in a document.
#include "faces/shared/statement_colors.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "faces/qt/highlighter.h"
#include "faces/qt/qt_text.h"
#include "faces/qt/text_boxes.h"
#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using faces::ColoredWord;
using faces::ColoredWordsOf;
using faces::WordKind;

constexpr WordKind kKinds[] = {WordKind::kKeyword, WordKind::kBlock,  WordKind::kFunction,
                               WordKind::kBinding, WordKind::kString, WordKind::kNumber};

std::string NameOf(WordKind kind) {
  switch (kind) {
    case WordKind::kKeyword:
      return "keyword";
    case WordKind::kBlock:
      return "block";
    case WordKind::kFunction:
      return "function";
    case WordKind::kBinding:
      return "binding";
    case WordKind::kString:
      return "string";
    case WordKind::kNumber:
      return "number";
  }
  return "none";
}

// The coloured words of a line as "keyword select", from left to right.
Texts Words(StringView line) {
  Texts words;
  for (const ColoredWord& word : ColoredWordsOf(line))
    words.push_back(NameOf(word.kind) + " " + Narrow(line.substr(word.first, word.count)));
  return words;
}
Texts Words(std::string_view line) {
  return Words(Wide(line));
}

// Every word of the language by itself.
class EachWordTest : public ::testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(EachWordTest, IsKnownInAnyLetterCaseAndNotWithinAName) {
  const std::string kind = GetParam().first;
  const std::string word = GetParam().second;
  std::string upper = word;
  std::transform(upper.begin(), upper.end(), upper.begin(), ::toupper);
  std::string mixed = word;
  mixed[0] = upper[0];
  for (const std::string& way : {word, upper, mixed}) {
    EXPECT_EQ(Words(way), (Texts{kind + " " + way}));
    EXPECT_EQ(Words("(" + way + ")"), (Texts{kind + " " + way}));
    EXPECT_EQ(Words(way + " ("), (Texts{kind + " " + way}))
        << "a word of the language calls nothing";
    EXPECT_EQ(Words("x" + way), Texts{});
    EXPECT_EQ(Words(way + "_1"), Texts{});
    EXPECT_EQ(Words("CUSTOMER." + way), Texts{});
    EXPECT_EQ(Words(way + ".NAME"), Texts{});
    EXPECT_EQ(Words("\xC3\xA9" + way), Texts{});
  }
}

std::vector<std::pair<const char*, const char*>> EachWord() {
  std::vector<std::pair<const char*, const char*>> words;
  for (const char* word :
       {"and",    "as",   "asc",   "between", "break",  "by",     "case",    "desc",   "else",
        "exists", "for",  "from",  "group",   "if",     "in",     "inrange", "like",   "not",
        "on",     "or",   "order", "range",   "refers", "repeat", "rows",    "select", "set",
        "step",   "then", "to",    "until",   "where",  "while",  "with"}) {
    words.emplace_back("keyword", word);
  }
  for (const char* word : {"default", "endcase", "endfor", "endif", "endselect", "endwhile",
                           "selectdo", "selectempty", "selecteos", "selecterror"}) {
    words.emplace_back("block", word);
  }
  return words;
}

INSTANTIATE_TEST_SUITE_P(Each, EachWordTest, ::testing::ValuesIn(EachWord()),
                         [](const auto& word) { return std::string(word.param.second); });

struct Line {
  const char* name;
  std::string line;
  Texts words;
};

class EachLineTest : public ::testing::TestWithParam<Line> {};

TEST_P(EachLineTest, HasTheseColors) {
  EXPECT_EQ(Words(GetParam().line), GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    Each, EachLineTest,
    ::testing::Values(
        Line{"Empty", "", {}}, Line{"Blank", "  \t ", {}},
        Line{"Names", "CUSTOMER.CUST_NO, _x, caf\xC3\xA9", {}},
        Line{"SelectClause", "select CUSTOMER.NAME:var.a", {"keyword select", "binding :var.a"}},
        Line{"BindingOfAKey", "where X = {: :var.key }", {"keyword where", "binding :var.key"}},
        Line{"BindingNamedLikeAKeyword", ":from", {"binding :from"}},
        Line{"ColonAlone", ": :) a:", {}},
        Line{"BindingsSideBySide", ":a:b", {"binding :a", "binding :b"}},
        Line{"Function", "sum(X)", {"function sum"}},
        Line{"FunctionWithBlanks", "count   ( distinct X )", {"function count"}},
        Line{"NameWithoutBracket", "sum X (", {"function X"}},
        Line{"BracketOnTheNextLine", "sum ", {}},
        Line{"KeywordIsNoFunction", "and ( X in (1) )", {"keyword and", "keyword in", "number 1"}},
        Line{"Numbers", "12 + 3.50-7", {"number 12", "number 3.50", "number 7"}},
        Line{"NumberWithinAName", "1st 2nd.x CUST_1 x9 a.1", {}},
        Line{"String", "x = \"select 1\" or 2", {"string \"select 1\"", "keyword or", "number 2"}},
        Line{"EmptyString", "\"\"", {"string \"\""}},
        Line{"StringNotClosed", "set x \"to 1 :a", {"keyword set", "string \"to 1 :a"}},
        Line{"QuoteAtTheEnd", "if \"", {"keyword if", "string \""}},
        Line{"StringsSideBySide", "\"a\"\"b\"", {"string \"a\"", "string \"b\""}},
        Line{"KeywordBehindAString", "\"a\"and", {"string \"a\"", "keyword and"}},
        Line{"SingleQuotes", "'or'", {"keyword or"}},
        Line{"BlockWords",
             "selectdo EndSelect default:",
             {"block selectdo", "block EndSelect", "block default"}}),
    [](const auto& line) { return std::string(line.param.name); });

TEST(ColoringTest, LoneSurrogatesBelongToTheNameTheyStandIn) {
  const char16_t high = 0xD83D;
  const char16_t low = 0xDE00;
  EXPECT_EQ(Words(String{high}), Texts{});
  EXPECT_EQ(Words(String{low, u'i', u'f'}), Texts{});
  EXPECT_EQ(Words(String{u'i', u'f', u' ', high}), Texts{"keyword if"});
  EXPECT_EQ(ColoredWordsOf(String{u'"', low, u'"', high}),
            (std::vector<ColoredWord>{{0, 3, WordKind::kString}}));
  EXPECT_EQ(ColoredWordsOf(String{u':', high, u' '}),
            (std::vector<ColoredWord>{{0, 2, WordKind::kBinding}}));
}

TEST(ColoringTest, NulEndsNoLine) {
  const String line{u'i', u'f', u'\0', u'o', u'r'};
  EXPECT_EQ(ColoredWordsOf(line),
            (std::vector<ColoredWord>{{0, 2, WordKind::kKeyword}, {3, 2, WordKind::kKeyword}}));
}

TEST(ColoringTest, WordsStandInOrderWithinTheLineWithoutOverlap) {
  const std::vector<String> pieces{
      u"select",      u"endif",       u"sum",          u" ", u"(",    u")",  u":", u".",
      u"\"",          u"1",           u"9.",           u"_", u"\xE9", u"\t", u"{", u",",
      String{0xD800}, String{0xDC00}, String(1, u'\0')};
  std::mt19937 random(20);
  std::size_t found = 0;
  for (int round = 0; round < 5000; ++round) {
    String line;
    for (auto count = random() % 14; count > 0; --count)
      line += pieces[random() % pieces.size()];
    std::size_t end = 0;
    for (const ColoredWord& word : ColoredWordsOf(line)) {
      ASSERT_GE(word.first, end) << Narrow(line);
      ASSERT_GT(word.count, 0U) << Narrow(line);
      end = word.first + word.count;
      ASSERT_LE(end, line.size()) << Narrow(line);
      ++found;
    }
  }
  EXPECT_GT(found, 1000U) << "the lines hold too few words to prove anything";
}

// The contrast ratio of two colours, from 1 to 21, by their relative luminance.
double Luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}
double Contrast(const QColor& one, const QColor& other) {
  const double a = Luminance(one) + 0.05;
  const double b = Luminance(other) + 0.05;
  return std::max(a, b) / std::min(a, b);
}

QPalette PaletteOn(QRgb base) {
  QPalette palette;
  palette.setColor(QPalette::Base, QColor(base));
  return palette;
}

TEST(WordFormatTest, BlackOnWhiteHasTheGreatestContrast) {
  EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.01);
  EXPECT_NEAR(Contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

TEST(WordFormatTest, EachKindIsReadableOnLightAndOnDark) {
  for (const QRgb base : {0xFFFFFFFFU, 0xFFF5F5F5U, 0xFFFDF6E3U, 0xFF000000U, 0xFF1E1E1EU,
                          0xFF2D2D30U, 0xFF232629U}) {
    const QPalette palette = PaletteOn(base);
    for (const WordKind kind : kKinds) {
      const QColor color = qt::FormatOf(kind, palette).foreground().color();
      EXPECT_GE(Contrast(color, QColor(base)), 4.5)
          << NameOf(kind) << " on " << QColor(base).name().toStdString();
    }
  }
}

TEST(WordFormatTest, EachKindIsReadableInThePaletteOfTheProgram) {
  const QPalette palette = QGuiApplication::palette();
  for (const WordKind kind : kKinds) {
    const QColor color = qt::FormatOf(kind, palette).foreground().color();
    EXPECT_GE(Contrast(color, palette.color(QPalette::Base)), 4.5) << NameOf(kind);
  }
}

TEST(WordFormatTest, StructureIsToldFromPlainTextWithoutColor) {
  for (const QRgb base : {0xFFFFFFFFU, 0xFF1E1E1EU}) {
    for (const WordKind kind :
         {WordKind::kKeyword, WordKind::kBlock, WordKind::kFunction, WordKind::kString}) {
      const QTextCharFormat format = qt::FormatOf(kind, PaletteOn(base));
      EXPECT_TRUE(format.fontWeight() >= QFont::DemiBold || format.fontItalic()) << NameOf(kind);
    }
  }
}

// A document whose layout tells which lines were coloured.
class ColoredDocumentTest : public ::testing::Test {
 protected:
  static constexpr int kLines = 40000;  // of 26 characters: more than a megabyte

  static QString LongText() {
    QString text;
    for (int line = 0; line < kLines; ++line)
      text += QStringLiteral("select X%1 from \"T\" ( 1 )\n").arg(line % 1000, 3, 10, QChar(u'0'));
    return text;
  }

  static Texts FormatsOf(const QTextBlock& block) {
    Texts words;
    for (const QTextLayout::FormatRange& range : block.layout()->formats())
      words.push_back(block.text().mid(range.start, range.length).toStdString());
    return words;
  }

  // Puts a format of our own on each line in place of its colours.
  static void Mark(QTextDocument& document) {
    QTextLayout::FormatRange mark;
    mark.start = 0;
    mark.length = 1;
    mark.format.setProperty(kMark, true);
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
      block.layout()->setFormats({mark});
    // Otherwise the document takes the formats for a part of the next edit.
    document.markContentsDirty(0, document.characterCount());
  }
  // The lines whose colours were set since.
  static std::vector<int> Colored(QTextDocument& document) {
    std::vector<int> lines;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
      const auto formats = block.layout()->formats();
      if (formats.size() != 1 || !formats[0].format.hasProperty(kMark))
        lines.push_back(block.blockNumber());
    }
    return lines;
  }

  static constexpr int kMark = QTextFormat::UserProperty + 20;
};

TEST_F(ColoredDocumentTest, LinesAreColoredByTheirWords) {
  QTextDocument document(QStringLiteral("select sum (X)\n\nendselect"));
  qt::Highlighter highlighter(&document, PaletteOn(0xFFFFFFFF));
  QTest::qWait(0);
  EXPECT_EQ(FormatsOf(document.findBlockByNumber(0)), (Texts{"select", "sum"}));
  EXPECT_EQ(FormatsOf(document.findBlockByNumber(1)), Texts{});
  EXPECT_EQ(FormatsOf(document.findBlockByNumber(2)), Texts{"endselect"});
}

TEST_F(ColoredDocumentTest, AnotherPaletteColorsAllLinesAnew) {
  QTextDocument document(QStringLiteral("select\nendif"));
  qt::Highlighter highlighter(&document, PaletteOn(0xFFFFFFFF));
  QTest::qWait(0);
  const auto color = [&](int line) {
    return document.findBlockByNumber(line).layout()->formats().at(0).format.foreground().color();
  };
  const QColor keyword = color(0);
  highlighter.SetPalette(PaletteOn(0xFF000000));
  EXPECT_NE(color(0), keyword);
  EXPECT_GE(Contrast(color(0), Qt::black), 4.5);
  EXPECT_GE(Contrast(color(1), Qt::black), 4.5);
}

TEST_F(ColoredDocumentTest, TypingInALongTextColorsItsOwnLineAlone) {
  qt::LinesBox box;
  box.Show(qt::FromQt(LongText()));
  box.Highlight(true);
  QTest::qWait(0);
  ASSERT_GT(box.document()->characterCount(), 1000000);
  ASSERT_EQ(FormatsOf(box.document()->findBlockByNumber(kLines - 1)),
            (Texts{"select", "from", "\"T\"", "1"}));
  Mark(*box.document());
  QTextCursor cursor(box.document()->findBlockByNumber(kLines / 2));
  box.setTextCursor(cursor);
  QTest::keyClick(&box, Qt::Key_A);
  QTest::qWait(0);
  EXPECT_EQ(Colored(*box.document()), std::vector<int>{kLines / 2});
  EXPECT_EQ(FormatsOf(cursor.block()), (Texts{"from", "\"T\"", "1"}));
}

TEST_F(ColoredDocumentTest, AQuoteColorsNoLineBelow) {
  qt::LinesBox box;
  box.Show(u"a\nselect\nif");
  box.Highlight(true);
  QTest::qWait(0);
  Mark(*box.document());
  box.setTextCursor(QTextCursor(box.document()));
  QTest::keyClicks(&box, QStringLiteral("\""));
  EXPECT_EQ(Colored(*box.document()), std::vector<int>{0});
  EXPECT_EQ(FormatsOf(box.document()->begin()), Texts{"\"a"});
}

TEST_F(ColoredDocumentTest, ColoringIsNoEdit) {
  qt::LinesBox box;
  box.Show(u"select\rx");
  int typed = 0;
  QObject::connect(&box, &qt::LinesBox::Typed, [&] { ++typed; });
  box.Highlight(true);
  QTest::qWait(0);
  box.setPalette(PaletteOn(0xFF000000));
  QTest::qWait(0);
  EXPECT_EQ(FormatsOf(box.document()->begin()), Texts{"select"});
  box.Highlight(false);
  QTest::qWait(0);
  EXPECT_EQ(FormatsOf(box.document()->begin()), Texts{});
  EXPECT_EQ(typed, 0);
  EXPECT_EQ(box.Text(), u"select\rx");
  EXPECT_FALSE(box.HasOwnUndo());
}

}  // namespace
}  // namespace zolt20::tests
