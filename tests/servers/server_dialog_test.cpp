// A person opens a database of a server: by real mouse and key events in the composer's window.
#include <QComboBox>
#include <QDir>
#include <QDirIterator>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QTcpServer>
#include <QTcpSocket>

#include "hosts/composer/server_dialog.h"
#include "surface/surface.h"
#include "tests/composer/composer_test.h"
#include "tests/servers/servers.h"

namespace zolt20::tests {
namespace {

using composer::ServerDialog;
using composer::ServerReader;

constexpr const char* kTypedPassword = "s3cret;{pass}'w=rd\\ %";

// What Qt and its drivers write to the log while it lives.
class Log {
 public:
  Log() {
    text.clear();
    before_ = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& line) { text += line + u'\n'; });
  }
  Log(const Log&) = delete;
  Log& operator=(const Log&) = delete;
  ~Log() { qInstallMessageHandler(before_); }

  inline static QString text;

 private:
  QtMessageHandler before_;
};

class ServerDialogTest : public ComposerTest {
 protected:
  ServerDialogTest() { qputenv("XDG_CONFIG_HOME", In("settings").toUtf8()); }
  ~ServerDialogTest() override {
    qunsetenv("XDG_CONFIG_HOME");
    EXPECT_TRUE(NoThreadIsLeft());
  }

  /// The list of tables of the control.
  Texts TableCodes() {
    Texts codes;
    const ListBox& list = window().map().form().lsttables;
    for (int row = 0; row < list.ListCount(); ++row)
      codes.push_back(Narrow(list.List(row)));
    return codes;
  }
  QPushButton& Button(const char* text) {
    for (auto* button : Dialog().findChildren<QPushButton*>()) {
      if (WithoutMnemonic(button->text()) == QString::fromUtf8(text)) return *button;
    }
    throw std::runtime_error(std::string("there is no button ") + text);
  }
  QListWidget& Schemas() { return *Dialog().findChild<QListWidget*>(); }
  Texts ListedSchemas() {
    Texts rows;
    for (int row = 0; row < Schemas().count(); ++row)
      rows.push_back(Std(Schemas().item(row)->text()) +
                     (Schemas().item(row)->checkState() == Qt::Checked ? "*" : ""));
    return rows;
  }
  void Tick(int row) {
    const QRect place = Schemas().visualItemRect(Schemas().item(row));
    PressOn(*Schemas().viewport(), {place.left() + 8, place.center().y()});
  }
  std::string Message() { return Std(Dialog().findChild<QLabel*>(QStringLiteral("told"))->text()); }
  bool IsWaiting() { return Dialog().findChild<QProgressBar*>()->isVisible(); }
  void ChooseDriver(int row) {
    auto& drivers = *Dialog().findChild<QComboBox*>();
    drivers.setFocus();
    QTest::keyClick(drivers.window()->windowHandle(), Qt::Key_Home);
    for (int step = 0; step < row; ++step)
      QTest::keyClick(drivers.window()->windowHandle(), Qt::Key_Down);
    ASSERT_EQ(drivers.currentIndex(), row);
  }
  void TypeAddress(const composer::ServerAddress& address, const char* password = kTypedPassword) {
    ChooseDriver(static_cast<int>(address.kind));
    TypeLine(LineOf("Host"), "127.0.0.1");
    auto& port = *Dialog().findChild<QSpinBox*>();
    PressOn(port, port.rect().center());
    QTest::keySequence(port.window()->windowHandle(), QKeySequence(QKeySequence::SelectAll));
    for (const char key : std::to_string(address.port))
      QTest::keyClick(port.window()->windowHandle(), key);
    TypeLine(LineOf("Database"), Std(address.database).c_str());
    TypeLine(LineOf("User"), Std(address.user).c_str());
    TypeLine(LineOf("Password"), password);
  }
  void Connect() {
    Choose("Connect");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !IsWaiting(); }, 10000));
  }
  void Open() {
    QPointer<QWidget> dialog = &Dialog();
    Choose("Open");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog || !dialog->isVisible(); }, 10000));
  }
};

TEST_F(ServerDialogTest, TheTablesOfTheTickedSchemasBecomeTheCatalogue) {
  Menu("File", "Open Database...",
       {[this] {
          TypeAddress(PostgreSql().Address());
          EXPECT_EQ(LineOf("Password").echoMode(), QLineEdit::Password);
          EXPECT_FALSE(Button("Open").isEnabled());
          Connect();
          EXPECT_EQ(Message(), "Connected. Tick the schemas and press Open.");
          EXPECT_EQ(ListedSchemas(), (Texts{"branch (2)", "it's a \\ %1 (1)", "shop (306)"}));
          EXPECT_FALSE(Button("Open").isEnabled());
          Tick(2);
          EXPECT_EQ(ListedSchemas()[2], "shop (306)*");
          Open();
        },
        [this] {
          EXPECT_EQ(Std(Dialog<QMessageBox>().informativeText()), "Left out: 3");
          EXPECT_TRUE(Dialog<QMessageBox>().detailedText().contains(
              QStringLiteral("column odd.a,b is left out")));
          Choose("OK");
        }});
  EXPECT_EQ(TableCodes().size(), 305U);
  EXPECT_TRUE(window().windowTitle().contains(u"postgres"));
}

TEST_F(ServerDialogTest, OneSchemaAloneIsTicked) {
  composer::ServerAddress address = MariaDb().Address();
  address.database = QStringLiteral("branch");
  Menu("File", "Open Database...", {[this, &address] {
         TypeAddress(address);
         Connect();
         EXPECT_EQ(ListedSchemas(), (Texts{"branch (2)*", "it's a \\ %1 (1)", "shop (305)"}));
         Open();
       }});
  EXPECT_EQ(TableCodes(), (Texts{"own_____", "t_001___"}));
}

// Also what is saved of it, and what is kept in the settings, has no password.
TEST_F(ServerDialogTest, ThePasswordIsWrittenNowhere) {
  const Log log;
  composer::ServerAddress address = MariaDb().Address();
  address.database = QStringLiteral("branch");
  Menu("File", "Open Database...", {[this, &address] {
         TypeAddress(address, "s3cret but wrong");
         Connect();
         EXPECT_NE(Message().find("Access denied"), std::string::npos) << Message();
         EXPECT_EQ(Message().find("s3cret"), std::string::npos) << Message();
         TypeLine(LineOf("Password"), kTypedPassword);
         Connect();
         Open();
       }});
  Menu("File", "Edit Functions...", {[this] { Choose("OK"); }});
  Menu("File", "Save Catalogue As...", {File(In("branch.json"), "Save")});
  Menu("File", "Save Session Record...", {File(In("record.jsonl"), "Save")});
  int files = 0;
  for (QDirIterator file(folder_.path(), QDir::Files, QDirIterator::Subdirectories); file.hasNext();
       ++files) {
    EXPECT_EQ(Bytes(file.next()).find("s3cret"), std::string::npos) << Std(file.filePath());
  }
  EXPECT_GE(files, 3);
  EXPECT_FALSE(Log::text.contains(u"s3cret")) << Std(Log::text);
}

TEST_F(ServerDialogTest, TheSavedCatalogueIsOpenedWithoutTheServer) {
  composer::ServerAddress address = MariaDb().Address();
  address.database = QStringLiteral("branch");
  Menu("File", "Open Database...", {[this, &address] {
         TypeAddress(address);
         Connect();
         Open();
       }});
  Menu("File", "Save Catalogue As...", {File(In("branch.json"), "Save")});
  const Texts before = TableCodes();
  OpenWindow();
  ASSERT_TRUE(window().OpenCatalogue(In("branch.json")));
  With([] {}, {});
  EXPECT_EQ(TableCodes(), before);
}

TEST_F(ServerDialogTest, AnotherAddressForgetsTheSchemas) {
  Menu("File", "Open Database...", {[this] {
         TypeAddress(PostgreSql().Address());
         Connect();
         Tick(2);
         EXPECT_TRUE(Button("Open").isEnabled());
         TypeLine(LineOf("User"), "somebody");
         EXPECT_EQ(Schemas().count(), 0);
         EXPECT_FALSE(Button("Open").isEnabled());
         EXPECT_EQ(Message(), "");
         Choose("Cancel");
       }});
  EXPECT_EQ(TableCodes().size(), 9U);  // those of before
}

TEST_F(ServerDialogTest, CancelStopsWaitingAndThenCloses) {
  QTcpServer silent;
  ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
  composer::ServerAddress address = PostgreSql().Address();
  address.port = silent.serverPort();
  Menu("File", "Open Database...", {[this, &address] {
         TypeAddress(address);
         Choose("Connect");
         QTest::qWait(200);
         EXPECT_TRUE(IsWaiting());
         EXPECT_EQ(Message(), "Connecting...");
         EXPECT_FALSE(Button("Connect").isEnabled());
         Choose("Cancel");
         EXPECT_FALSE(IsWaiting());
         EXPECT_EQ(Message(), "Cancelled.");
         EXPECT_TRUE(Button("Connect").isEnabled());
         Choose("Cancel");
       }});
  silent.close();
}

TEST_F(ServerDialogTest, ASourceOfOdbcHasNoHost) {
  const composer::ServerAddress source = OdbcAddress("lite");
  Menu("File", "Open Database...", {[this, &source] {
         ChooseDriver(2);
         EXPECT_FALSE(LineOf("Host").isVisible());
         TypeLine(LineOf("Data source"), Std(source.database).c_str());
         Connect();
         EXPECT_EQ(ListedSchemas(), Texts{"main (301)*"});
         Open();
       }});
  EXPECT_EQ(TableCodes().size(), 301U);
}

// ---- without a server

TEST(ServerDriverTest, AMissingDriverIsToldWithItsPackage) {
  ServerDialog dialog(nullptr, [](const QString& driver) { return driver == u"QMYSQL"; });
  dialog.show();
  const auto* told = dialog.findChild<QLabel*>(QStringLiteral("told"));
  auto* drivers = dialog.findChild<QComboBox*>();
  QPushButton* connects = nullptr;
  for (auto* button : dialog.findChildren<QPushButton*>()) {
    if (button->text() == u"C&onnect") connects = button;
  }
  ASSERT_NE(connects, nullptr);
  EXPECT_EQ(Std(told->text()),
            "The driver for PostgreSQL is missing. On Debian it comes with the package "
            "libqt6sql6-psql.");
  EXPECT_FALSE(connects->isEnabled());
  drivers->setCurrentIndex(1);
  EXPECT_EQ(Std(told->text()), "");
  EXPECT_TRUE(connects->isEnabled());
  drivers->setCurrentIndex(2);
  EXPECT_TRUE(told->text().endsWith(u"libqt6sql6-odbc."));
  EXPECT_FALSE(connects->isEnabled());
}

TEST(ServerAddressTest, ThePasswordOfASourceIsInNoName) {
  const composer::ServerAddress source{
      composer::ServerKind::kOdbc,
      {},
      0,
      QStringLiteral("DRIVER=X;Pwd=s3cret;Database=shop;PASSWORD = s3cret;UID=me"),
      {}};
  EXPECT_EQ(Std(NameOf(source)), "shop");
  EXPECT_EQ(Std(FullNameOf(source)), "ODBC DRIVER=X;Database=shop;UID=me");
  const composer::ServerAddress other{
      composer::ServerKind::kMariaDb, QStringLiteral("db"), 0, QStringLiteral("shop"), {}};
  EXPECT_EQ(Std(NameOf(other)), "shop");
  EXPECT_EQ(Std(FullNameOf(other)), "MariaDB, MySQL db:3306/shop");
}

}  // namespace
}  // namespace zolt20::tests
