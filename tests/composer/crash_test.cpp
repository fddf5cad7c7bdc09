// Every state in which a crash of the machine may leave the folder of a file of rules and its
// journal: all can be read, and nothing that was synced is missing.
#include <QDir>
#include <set>

#include "hosts/composer/recovery.h"
#include "tests/composer/composer_test.h"
#include "tests/composer/traced_disk.h"

namespace zolt20::tests {
namespace {

using composer::KeptSession;
using composer::RecoveryOffer;

constexpr const char* kRules = "orders.rules";
constexpr const char* kOldText = "select ORDERS__.O_ID\r\nfrom  ORDERS__\r\nendselect";

class CrashTest : public ComposerTest {
 protected:
  void Keep() { EXPECT_TRUE(window().journal().WaitUntilKept(std::chrono::seconds(10))); }

  /// A rule is composed, stored, and composed on.
  std::vector<DiskStep> StepsOfSession() {
    const TracedDisk traced(folder_.path().toStdString());
    OpenRules({{u"Orders", Wide(kOldText), u"long*Q*V*R*N*NORDERS__.O_ID*Q*V*R*N*"}});
    Click("cmdAddSelect");
    Keep();
    Tab(2);
    Type("txtSelectDo", ":a = 1");
    Keep();
    Click("cmdAddSelectDoQuer");
    newText_ = Result();
    Click("cmdDone");
    Keep();
    Tab(0);
    Click("lsttables", 2);
    Click("lsttables", 2);
    Keep();
    window_.reset();
    return TracedDisk::Steps();
  }

  static std::optional<KeptSession> SessionIn(const FolderState& state) {
    std::optional<KeptSession> session;
    for (const auto& [name, bytes] : state) {
      if (name.find(".journal") == std::string::npos) continue;
      session = composer::ReadJournal(QByteArray::fromStdString(bytes));
    }
    return session;
  }
  static std::size_t StepsIn(const FolderState& state) {
    const auto session = SessionIn(state);
    return session && !session->isAllStored ? session->steps.all().size() : 0;
  }

  /// The text of the rule, as a start finds it.
  std::string TextIn(const FolderState& state) {
    QDir(In("crash")).removeRecursively();
    QDir().mkpath(In("crash"));
    for (const auto& [name, bytes] : state)
      WriteBytes(In("crash") + u'/' + Qs(name), bytes);
    if (state.count(kRules) == 0) return {};
    const auto rules = composer::RulesFile::Open(In("crash/orders.rules"));
    EXPECT_EQ(rules.rules().size(), 1U);
    return Narrow(rules.rules().at(0).text);
  }

  /// What a start shows that goes on.
  std::size_t StepsAfterStart() {
    composer::MainWindow started;
    EXPECT_TRUE(started.OpenCatalogue(Qs(Examples() + "/catalogue.json")));
    bool isOffered = false;
    QTimer presser;
    QObject::connect(&presser, &QTimer::timeout, [&isOffered] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr || !dialog->isVisible()) return;
      for (QPushButton* button : dialog->findChildren<QPushButton*>()) {
        if (isOffered || WithoutMnemonic(button->text()) != u"Go On") continue;
        isOffered = true;
        return button->click();
      }
      ADD_FAILURE() << "an unexpected dialog: " << TextsOf(*dialog);
      dialog->reject();
    });
    presser.start(0);
    EXPECT_TRUE(started.OpenRules(In("crash/orders.rules")));
    const auto steps = static_cast<std::size_t>(started.map().Record().count("\"user\""));
    started.journal().Forget();
    return isOffered ? steps : 0;
  }

  static std::string TextsOf(const QDialog& dialog) {
    std::string texts = Std(dialog.windowTitle());
    for (const QLabel* label : dialog.findChildren<QLabel*>())
      texts += "; " + Std(label->text());
    return texts;
  }

  std::string newText_;
};

TEST_F(CrashTest, NothingThatWasSyncedIsMissingFromAnyStateOfTheDisk) {
  const std::vector<DiskStep> steps = StepsOfSession();
  ASSERT_GT(steps.size(), 20U);
  handlesDialogs_ = false;
  std::set<FolderState> tried;
  std::size_t gone = 0;
  for (std::size_t count = 0; count <= steps.size() && !HasFailure(); ++count) {
    const FolderState synced = SyncedState(steps, count);
    const std::string syncedText = TextIn(synced);
    for (const FolderState& state : CrashStates(steps, count)) {
      const std::string text = TextIn(state);
      EXPECT_TRUE(text == syncedText || text == kOldText || text == newText_) << text;
      EXPECT_TRUE(syncedText != newText_ || text == newText_) << "behind step " << count;
      // The journal may be gone once what it had is stored.
      if (StepsIn(state) < StepsIn(synced)) {
        EXPECT_EQ(text, newText_) << "behind step " << count;
        ++gone;
      }
      if (state.count(kRules) == 0 || !tried.insert(state).second) continue;
      const std::size_t shown = StepsAfterStart();
      const auto session = SessionIn(state);
      EXPECT_TRUE(text == newText_ || !session || shown > 0) << "behind step " << count;
    }
  }
  EXPECT_GT(tried.size(), 20U);
  EXPECT_GT(gone, 0U);
}

}  // namespace
}  // namespace zolt20::tests
