// Boxes behave like the platform's own: random keys and clicks go to each box of the form and to
// a plain box of Qt with the same size and font. After each of them text, caret and mark have to
// agree, and whether the box has a step to undo.
//
// Exceptions, where the form itself handles a key:
// - A box without an undo of its own leaves Ctrl+Z and Ctrl+Y to the form; then no box gets them.
// - The row limit hands its keys to the form, which drops some and writes the others into the text.
//   The plain box is set to what the form has then, and begins a new history.
// - The form gives pasted line ends in a box of one line as CR LF, and the plain box is given
// those.
// - Typing forgets the entry of a combo that was picked.
// In every other course the words have their weights, in both boxes.
#include "faces/qt/highlighter.h"
#include "faces/shared/shown_text.h"
#include "hosts/automation/session.h"
#include "tests/qt/widget_test.h"
#include "tests/support/box_keys.h"

namespace zolt20::tests {
namespace {

using What = BoxKey::What;

QString AsLf(QString text) {
  return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
      .replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

// One of the two boxes, ours or the plain one.
struct Side {
  QLineEdit* line = nullptr;
  QPlainTextEdit* lines = nullptr;

  QString Text() const { return line != nullptr ? line->text() : lines->toPlainText(); }
  int Caret() const {
    return line != nullptr ? line->cursorPosition() : lines->textCursor().position();
  }
  // The anchor of the mark, the end without the caret.
  int Anchor() const {
    if (line == nullptr) return lines->textCursor().anchor();
    if (!line->hasSelectedText()) return Caret();
    return line->selectionStart() == Caret() ? line->selectionEnd() : line->selectionStart();
  }
  bool CanUndo() const {
    return line != nullptr ? line->isUndoAvailable() : lines->document()->isUndoAvailable();
  }
  bool CanRedo() const {
    return line != nullptr ? line->isRedoAvailable() : lines->document()->isRedoAvailable();
  }
  void Set(const QString& text, int caret, int anchor) {
    if (lines != nullptr) {
      lines->setPlainText(text);
      QTextCursor cursor = lines->textCursor();
      cursor.setPosition(anchor);
      cursor.setPosition(caret, QTextCursor::KeepAnchor);
      return lines->setTextCursor(cursor);
    }
    line->setText(text);
    line->setCursorPosition(anchor);
    if (caret != anchor) line->setSelection(anchor, caret - anchor);
  }
  // In a line of Qt, a redo behind an undo of characters that replaced others can leave a mark that
  // begins before the text; an undo behind it brings characters that nobody typed.
  bool IsBroken() const {
    return line != nullptr && line->hasSelectedText() && line->selectionStart() < 0;
  }
  QWidget& Target() const { return line != nullptr ? static_cast<QWidget&>(*line) : *lines; }
  QWidget& MouseTarget() const { return line != nullptr ? Target() : *lines->viewport(); }
  std::string Look() const {
    return InQuotes(qt::FromQt(Text())) + " with the caret at " + std::to_string(Caret()) +
           ", the mark from " + std::to_string(Anchor()) + ", scrolled by " +
           std::to_string(Scrolled().x()) + " " + std::to_string(Scrolled().y()) +
           (CanUndo() ? ", can undo" : "") + (CanRedo() ? ", can redo" : "");
  }
  QPoint Scrolled() const {
    if (lines == nullptr) return {};
    return {lines->horizontalScrollBar()->value(), lines->verticalScrollBar()->value()};
  }
};

// How a person gets to a box: the gestures before.
struct BoxPlace {
  const char* name;
  std::vector<const char*> requests;

  friend std::ostream& operator<<(std::ostream& out, const BoxPlace& box) {
    return out << box.name;
  }
};

constexpr const char* kTab1 = R"({"user":"tab","page":1})";
constexpr const char* kTab6 = R"({"user":"tab","page":6})";
constexpr const char* kIf = R"({"user":"click","control":"optIfThen"})";
constexpr const char* kWhile = R"({"user":"click","control":"optwhile"})";
constexpr const char* kRepeat = R"({"user":"click","control":"optRepeat"})";
constexpr const char* kFor = R"({"user":"click","control":"optFor"})";
constexpr const char* kCase = R"({"user":"click","control":"optCase"})";
constexpr const char* kField = R"({"user":"pick","control":"cboWhereFields","row":0})";
constexpr const char* kTemplate = R"({"user":"pick","control":"cboOper","row":7})";
constexpr const char* kFirstValue = R"~({"user":"type","control":"TxtExpr(0)","text":"1"})~";
constexpr const char* kFirstStatement = R"~({"user":"type","control":"txtStmt(0)","text":"go"})~";
constexpr const char* kNext = R"({"user":"click","control":"cmdNext"})";

const std::vector<BoxPlace>& Boxes() {
  static const std::vector<BoxPlace> boxes{
      {"TxtOutput", {}},
      {"cboWhereFields1", {kTab1}},
      {"txtwhereCondition", {kTab1}},
      {"txtCondition", {kTab1, kField, kTemplate}},
      {"txtAsSet", {kTab1}},
      {"txtSelectDo", {R"({"user":"tab","page":2})"}},
      {"txtSelectEOS", {R"({"user":"tab","page":3})"}},
      {"txtselectempty", {R"({"user":"tab","page":4})"}},
      {"txtSelectError", {R"({"user":"tab","page":5})"}},
      {"txtCond", {kTab6, kIf}},
      {"txtStmt1", {kTab6, kIf}},
      {"txtStmt2", {kTab6, kIf}},
      {"txtWhlCnd", {kTab6, kWhile}},
      {"txtWhlStm", {kTab6, kWhile}},
      {"txtRepCnd", {kTab6, kRepeat}},
      {"txtRepStm", {kTab6, kRepeat}},
      {"txtVariable", {kTab6, kFor}},
      {"txtinitval", {kTab6, kFor}},
      {"txtFinVal", {kTab6, kFor}},
      {"txtStep", {kTab6, kFor}},
      {"txtForStmt", {kTab6, kFor}},
      {"txtcaseexp", {kTab6, kCase}},
      {"TxtDef", {kTab6, kCase}},
      {"TxtExpr(0)", {kTab6, kCase}},
      {"txtStmt(0)", {kTab6, kCase}},
      {"TxtExpr(1)", {kTab6, kCase, kFirstValue, kFirstStatement, kNext}},
      {"txtStmt(1)", {kTab6, kCase, kFirstValue, kFirstStatement, kNext}},
  };
  return boxes;
}

std::string CaseName(const BoxPlace& box) {
  std::string name = box.name;
  std::erase(name, ')');
  std::replace(name.begin(), name.end(), '(', '_');
  return name;
}

class AlikeTest : public WidgetTest, public ::testing::WithParamInterface<BoxPlace> {
 protected:
  AlikeTest() : interval_(QApplication::doubleClickInterval()) {
    constexpr int kShortInterval = 10;
    QApplication::setDoubleClickInterval(kShortInterval);
    constexpr const char* kTables = R"({"set":"PrpStrTables","value":"TABLE__12,TABLE__20"})";
    Ask(kTables);
    Ask(nlohmann::ordered_json({{"set", "PrpStrFields"},
                                {"value", List({Field("NTABLE__1.A"), Field("NTABLE__1.B")})}})
            .dump());
    Ask(R"({"user":"click","control":"lsttables","row":0})");
    for (const char* request : GetParam().requests)
      Ask(request);
    widget().restore(session_.Control().Save());
  }
  ~AlikeTest() override { QApplication::setDoubleClickInterval(interval_); }

  // Host and person in a session without a face, whose state the widget shows.
  void Ask(const std::string& request) {
    const std::string reply = session_.Reply(request);
    EXPECT_EQ(reply.find("\"error\""), std::string::npos) << request << " gives " << reply;
  }
  void ShowText(const std::u16string& text) {
    nlohmann::ordered_json request{
        {"user", "type"}, {"control", GetParam().name}, {"text", Narrow(text)}};
    Ask(request.dump());
    widget().restore(session_.Control().Save());
  }
  void TearDown() override {
    Log();
    WidgetTest::TearDown();
  }

  const String& SurfaceText() { return faces::TypedText(ControlOf(GetParam().name)); }
  bool IsByKeys() const { return std::string_view(GetParam().name) == "txtAsSet"; }

  void MakePlain() {
    QWidget& own = On(GetParam().name);
    if (auto* combo = qobject_cast<QComboBox*>(&own)) {
      ours_.line = combo->lineEdit();
      auto box = std::make_unique<QComboBox>();
      box->setEditable(true);
      box->setInsertPolicy(QComboBox::NoInsert);
      box->setCompleter(nullptr);
      for (int row = 0; row < combo->count(); ++row)
        box->addItem(combo->itemText(row));
      plain_.line = box->lineEdit();
      plainWindow_ = std::move(box);
    } else if (auto* lines = qobject_cast<QPlainTextEdit*>(&own)) {
      ours_.lines = lines;
      auto box = std::make_unique<QPlainTextEdit>();
      box->setLineWrapMode(QPlainTextEdit::NoWrap);
      box->setTabChangesFocus(true);
      box->setTabStopDistance(lines->tabStopDistance());
      // Qt decides late whether one is needed, and the box is lower with it.
      box->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
      lines->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
      plain_.lines = box.get();
      plainWindow_ = std::move(box);
    } else {
      ours_.line = qobject_cast<QLineEdit*>(&own);
      auto box = std::make_unique<QLineEdit>();
      plain_.line = box.get();
      plainWindow_ = std::move(box);
    }
    plainWindow_->setStyle(own.style());
    plainWindow_->setFont(own.font());
    plainWindow_->setAttribute(Qt::WA_ShowWithoutActivating);
    plainWindow_->show();
    widget_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(widget_));
  }

  // Both boxes show the text, with no history and the caret before it.
  void Begin(const BoxCourse& course) {
    const bool highlight = course.seed % 2 == 0;
    Ask(nlohmann::ordered_json({{"set", "Syntax_Highlight"}, {"value", highlight}}).dump());
    ShowText(u"before");
    ShowText(course.text);
    if (plainWindow_ == nullptr) MakePlain();
    QApplication::processEvents();
    plainWindow_->setFixedSize(On(GetParam().name).size());
    const bool isOfWords = highlight && ControlOf(GetParam().name).kind() == Kind::SyntaxTextBox;
    highlighter_.reset();
    if (isOfWords)
      highlighter_ =
          std::make_unique<qt::Highlighter>(plain_.lines->document(), widget_->palette());
    On(GetParam().name).setFocus();
    EXPECT_EQ(KeyboardFocus(), GetParam().name);
    if (auto* combo = qobject_cast<QComboBox*>(plainWindow_.get())) combo->setCurrentIndex(-1);
    plain_.Set(ours_.lines != nullptr ? AsLf(ours_.Text()) : ours_.Text(), 0, 0);
    Send({What::kHome, ours_.lines != nullptr});
    if (plain_.lines != nullptr) {
      plain_.lines->verticalScrollBar()->setValue(0);
      plain_.lines->horizontalScrollBar()->setValue(0);
    }
    QApplication::clipboard()->setText(QStringLiteral("first"));
    EXPECT_EQ(ours_.MouseTarget().size(), plain_.MouseTarget().size());
  }

  std::optional<Divergence> Play(const BoxCourse& course) {
    Begin(course);
    int keys = 0;
    if (std::string what = Difference(); !what.empty()) return Divergence{keys, what};
    for (const BoxKey& key : course.keys) {
      ++keys;
      if (std::string what = PlayKey(key); !what.empty())
        return Divergence{keys, "after " + Written(key) + " " + what};
      if (plain_.IsBroken()) break;
    }
    return std::nullopt;
  }

  std::string PlayKey(const BoxKey& key) {
    for (const Side* side : {&ours_, &plain_}) {
      if (side->line != nullptr) side->line->repaint();  // a line scrolls when it is drawn
    }
    const bool takesBack = key.what == What::kUndo || key.what == What::kRedo;
    if (takesBack && !(key.what == What::kUndo ? plain_.CanUndo() : plain_.CanRedo())) return "";
    if (key.what == What::kCopy || key.what == What::kCut) return PlayCopy(key);
    if (key.what == What::kPaste) return PlayPaste(key);
    const bool isKeyOfForm =
        IsByKeys() && !key.control &&
        (key.what == What::kCharacter || key.what == What::kBackspace || key.what == What::kEnter);
    if (isKeyOfForm) return PlayKeyOfForm(key);
    ForgetEntryLikeTheForm(key);
    Send(key);
    return Difference();
  }
  // The form writes other line ends anew, and the history begins again.
  std::string PlayPaste(const BoxKey& key) {
    QClipboard& clipboard = *QApplication::clipboard();
    if (!key.text.empty()) clipboard.setText(qt::ToQt(key.text));
    const String pasted = qt::FromQt(clipboard.text());
    const String written = faces::WithLineEnds(pasted);
    SendOurs(key);
    if (ours_.line == nullptr || written == pasted) {
      SendPlain(key);
      return Difference();
    }
    clipboard.setText(qt::ToQt(written));
    SendPlain(key);
    clipboard.setText(qt::ToQt(pasted));
    std::string what = LookDifference();
    if (auto* combo = qobject_cast<QComboBox*>(plainWindow_.get())) combo->setCurrentIndex(-1);
    plain_.Set(ours_.Text(), ours_.Caret(), ours_.Anchor());
    return what;
  }
  // What is copied is the text of the form; a plain box has LF for its line ends.
  std::string PlayCopy(const BoxKey& key) {
    QClipboard& clipboard = *QApplication::clipboard();
    const QString before = clipboard.text();
    SendOurs(key);
    const QString own = clipboard.text();
    clipboard.setText(before);
    SendPlain(key);
    const QString plain = clipboard.text();
    clipboard.setText(own);
    if (AsLf(own) != AsLf(plain))
      return "the clipboard has " + InQuotes(qt::FromQt(own)) + ", not " +
             InQuotes(qt::FromQt(plain));
    return Difference();
  }
  // The form drops the key, or writes the text with it: then the history of the box begins anew.
  std::string PlayKeyOfForm(const BoxKey& key) {
    const String before = SurfaceText();
    const bool isDropped =
        key.what == What::kEnter ||
        (key.what == What::kCharacter && (key.character < '0' || key.character > '9'));
    SendOurs(key);
    if (isDropped) return Difference();
    if (SurfaceText() == before) {
      plain_.line->deselect();
      plain_.line->setCursorPosition(ours_.Caret());
      return Difference();
    }
    SendPlain(key);
    std::string what = LookDifference();
    plain_.Set(ours_.Text(), ours_.Caret(), ours_.Anchor());
    return what;
  }
  void ForgetEntryLikeTheForm(const BoxKey& key) {
    auto* combo = qobject_cast<QComboBox*>(plainWindow_.get());
    if (combo == nullptr || (key.what != What::kUp && key.what != What::kDown)) return;
    if (form().cboWhereFields1.ListIndex() >= 0 || combo->currentIndex() < 0) return;
    const QString text = plain_.Text();
    combo->setCurrentIndex(-1);
    plain_.Set(text, text.size() >= plain_.Caret() ? ours_.Caret() : 0, ours_.Caret());
  }

  std::string LookDifference() const {
    const bool isSame =
        ours_.line != nullptr ? ours_.Text() == plain_.Text() : AsLf(ours_.Text()) == plain_.Text();
    if (isSame && ours_.Caret() == plain_.Caret() && ours_.Anchor() == plain_.Anchor() &&
        ours_.Scrolled() == plain_.Scrolled())
      return "";
    return "the box has " + ours_.Look() + "\n  and the plain box " + plain_.Look();
  }
  std::string Difference() {
    std::string what = LookDifference();
    if (what.empty() &&
        (ours_.CanUndo() != plain_.CanUndo() || ours_.CanRedo() != plain_.CanRedo()))
      what = "the box has " + ours_.Look() + "\n  and the plain box " + plain_.Look();
    if (what.empty() && AsLf(qt::ToQt(SurfaceText())) != AsLf(ours_.Text()))
      what = "the form has " + InQuotes(SurfaceText()) + " and the box " +
             InQuotes(qt::FromQt(ours_.Text()));
    return what;
  }

  // Sending.

  void Send(const BoxKey& key) {
    SendOurs(key);
    SendPlain(key);
  }
  // Our box has the focus of the window; the plain box is in another one, which is not active.
  void SendOurs(const BoxKey& key) { SendTo(*Window(), ours_, key); }
  void SendPlain(const BoxKey& key) { SendTo(plain_.Target(), plain_, key); }

  template <typename Receiver>
  void SendTo(Receiver& to, const Side& side, const BoxKey& key) {
    const auto modifiers = (key.control ? Qt::ControlModifier : Qt::NoModifier) |
                           (key.shift ? Qt::ShiftModifier : Qt::NoModifier);
    const auto press = [&](Qt::Key code) { QTest::keyClick(&to, code, modifiers); };
    const auto command = [&](QKeySequence::StandardKey keys) {
      QTest::keySequence(&to, QKeySequence(keys));
    };
    switch (key.what) {
      case What::kCharacter:
        return QTest::keyClick(&to, key.character);
      case What::kEnter:
        return press(Qt::Key_Return);
      case What::kLeft:
        return press(Qt::Key_Left);
      case What::kRight:
        return press(Qt::Key_Right);
      case What::kUp:
        return press(Qt::Key_Up);
      case What::kDown:
        return press(Qt::Key_Down);
      case What::kHome:
        return press(Qt::Key_Home);
      case What::kEnd:
        return press(Qt::Key_End);
      case What::kBackspace:
        return press(Qt::Key_Backspace);
      case What::kDelete:
        return press(Qt::Key_Delete);
      case What::kSelectAll:
        return command(QKeySequence::SelectAll);
      case What::kCopy:
        return command(QKeySequence::Copy);
      case What::kCut:
        return command(QKeySequence::Cut);
      case What::kPaste:
        return command(QKeySequence::Paste);
      case What::kUndo:
        return command(QKeySequence::Undo);
      case What::kRedo:
        return command(QKeySequence::Redo);
      case What::kClick:
      case What::kDoubleClick:
        return Mouse(side, key, modifiers);
    }
  }
  static QPoint PlaceIn(const Side& side, const BoxKey& key) {
    const QSize size = side.MouseTarget().size();
    return {1 + static_cast<int>(key.across * (size.width() - 2)),
            1 + static_cast<int>(key.down * (size.height() - 2))};
  }
  void Mouse(const Side& side, const BoxKey& key, Qt::KeyboardModifiers modifiers) {
    const QPoint place = PlaceIn(side, key);
    // A click soon after a double click at the same place would be the third one.
    if (lastDouble_ &&
        (place - *lastDouble_).manhattanLength() <= QApplication::startDragDistance() + 1) {
      QTest::qWait(2 * QApplication::doubleClickInterval());
      QApplication::processEvents();  // where it woke up too late for the end of the interval
      lastDouble_.reset();
    }
    QWidget& target = side.MouseTarget();
    QWindow* window = target.window()->windowHandle();
    const QPoint at = target.mapTo(target.window(), place);
    if (key.what == What::kClick) return QTest::mouseClick(window, Qt::LeftButton, modifiers, at);
    QTest::mouseDClick(window, Qt::LeftButton, modifiers, at);
    if (&side == &plain_) lastDouble_ = place;
  }

  automation::Session session_;
  int interval_;
  std::unique_ptr<QWidget> plainWindow_;
  std::unique_ptr<qt::Highlighter> highlighter_;
  Side ours_;
  Side plain_;
  std::optional<QPoint> lastDouble_;
};

TEST_P(AlikeTest, EachKeyDoesWhatItDoesInAPlainBox) {
  const bool hasSeveralLines = qobject_cast<QPlainTextEdit*>(&On("TxtOutput")) != nullptr &&
                               (ControlOf(GetParam().name).design().style & kMultiLine) != 0;
  const BoxManner manner{hasSeveralLines, IsByKeys()};
  long played = 0;
  const std::string report = PlayBox(
      GetParam().name, manner, [this](const BoxCourse& course) { return Play(course); },
      "./test --case '*AlikeTest*/" + CaseName(GetParam()) + "'", played);
  if (!report.empty()) ADD_FAILURE() << report;
  RecordProperty("keys", std::to_string(played));
}

INSTANTIATE_TEST_SUITE_P(Boxes, AlikeTest, ::testing::ValuesIn(Boxes()),
                         [](const auto& box) { return CaseName(box.param); });

}  // namespace
}  // namespace zolt20::tests
