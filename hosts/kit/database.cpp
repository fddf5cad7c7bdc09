#include "hosts/kit/database.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <utility>

#include "hosts/kit/text_coding.h"

namespace zolt20::catalogue {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kCodeLength = 8;
constexpr int kBusyTimeoutMilliseconds = 1000;

[[noreturn]] void Complain(const std::string& complaint) {
  throw CatalogueError("the database " + complaint);
}

// A text without lone surrogates in UTF-8.
std::string Utf8(StringView text) {
  return hosts::TakeStandIns(hosts::ToJsonText(text));
}

std::string PathText(const fs::path& path) {
  const std::u8string text = path.generic_u8string();
  return {text.begin(), text.end()};
}

// ---- the file

constexpr std::string_view kFirstBytes("SQLite format 3\0", 16);
constexpr std::size_t kReadVersionAt = 19;
constexpr char kReadVersionOfLog = 2;

void CheckFile(const fs::path& file) {
  std::error_code error;
  const fs::file_status status = fs::status(file, error);
  const std::string cannot = "can't be read: ";
  if (status.type() == fs::file_type::not_found) Complain(cannot + "there is no " + PathText(file));
  if (error) Complain(cannot + PathText(file) + ": " + error.message());
  if (fs::is_directory(status)) Complain(cannot + PathText(file) + " is a folder");
  if (!fs::is_regular_file(status)) Complain(cannot + PathText(file) + " is no file");
}

// Where changes of an interrupted program wait, only a program that may write can finish them.
[[noreturn]] void ComplainOfWaitingChanges() {
  Complain(
      "can't be read: changes in it wait to be finished; open it once with the program that it "
      "belongs to");
}

bool HasBytes(const fs::path& file) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(file, error);
  return !error && size > 0;
}

// How to open a file that begins so, in order that nothing is left behind. A reader of a database
// with a write-ahead log would make the log and its index where they are missing, and not take
// them away. Without them nobody has the database open, so all of it is in the one file.
std::string OpeningOptions(const fs::path& file, const std::string& beginning) {
  if (beginning[kReadVersionAt] != kReadVersionOfLog) return {};
  fs::path log = file;
  log += "-wal";
  fs::path index = file;
  index += "-shm";
  std::error_code ignored;
  const bool hasIndex = fs::exists(index, ignored);
  if (!fs::exists(log, ignored) || (!HasBytes(log) && !hasIndex)) return "?immutable=1";
  if (!hasIndex) ComplainOfWaitingChanges();
  return "?readonly_shm=1";
}

// The file as a URI, with every byte escaped that could mean something in one.
std::string Uri(const fs::path& file) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const std::string path = PathText(file);
  std::string uri = path.starts_with('/') ? "file://" : "file:///";
  for (const char character : path) {
    const bool plain = (character >= '0' && character <= '9') ||
                       (character >= 'A' && character <= 'Z') ||
                       (character >= 'a' && character <= 'z') || character == '/';
    if (plain) {
      uri += character;
    } else {
      const auto byte = static_cast<unsigned char>(character);
      uri += '%';
      uri += kDigits[byte >> 4U];
      uri += kDigits[byte & 0xFU];
    }
  }
  return uri;
}

// ---- the database

// What SQLite says when it can't do something.
class Failure : public std::runtime_error {
 public:
  explicit Failure(sqlite3* database)
      : std::runtime_error(Reason(database)), code_(sqlite3_errcode(database) & 0xFF) {}

  int Code() const { return code_; }

 private:
  // By way of 16-bit characters, since a name in it need not be valid UTF-8.
  static std::string Reason(sqlite3* database) {
    const auto* reason = static_cast<const char16_t*>(sqlite3_errmsg16(database));
    if (reason == nullptr) return "out of memory";
    if (sqlite3_errcode(database) != SQLITE_CANTOPEN) return Utf8(StringView(reason));
    return Utf8(StringView(reason)) + ": " +
           std::generic_category().message(sqlite3_system_errno(database));
  }

  int code_;
};

[[noreturn]] void Complain(const Failure& failure) {
  switch (failure.Code()) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      Complain("can't be read: another program has locked it");
    case SQLITE_READONLY:
      ComplainOfWaitingChanges();
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      Complain(std::string("is damaged or encrypted: ") + failure.what());
    default:
      Complain(std::string("can't be read: ") + failure.what());
  }
}

using Connection = std::unique_ptr<sqlite3, decltype(&sqlite3_close_v2)>;

Connection Connect(const fs::path& file, const std::string& options) {
  sqlite3* database = nullptr;
  const int code = sqlite3_open_v2((Uri(file) + options).c_str(), &database,
                                   SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
  Connection connection(database, sqlite3_close_v2);
  if (code != SQLITE_OK) throw Failure(database);
  sqlite3_busy_timeout(database, kBusyTimeoutMilliseconds);
  return connection;
}

// The first bytes of the file, "" when they are not those of a database. A stream would do, were
// it not that closing it takes away the locks of all connections that this program has to the file.
std::string Beginning(const Connection& connection) {
  sqlite3_file* file = nullptr;
  sqlite3_file_control(connection.get(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
  std::string bytes(kReadVersionAt + 1, '\0');
  const int code = file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), 0);
  if (code != SQLITE_OK || !bytes.starts_with(kFirstBytes)) return {};
  return bytes;
}

Connection Open(const fs::path& file) {
  CheckFile(file);
  // SQLite keeps the companions of a database where its links lead.
  std::error_code error;
  const fs::path real = fs::canonical(file, error);
  if (error) Complain("can't be read: " + PathText(file) + ": " + error.message());
  Connection connection = Connect(real, {});
  const std::string beginning = Beginning(connection);
  if (beginning.empty()) {
    Complain("can't be read: " + PathText(file) + " is no SQLite database, or an encrypted one");
  }
  const std::string options = OpeningOptions(real, beginning);
  return options.empty() ? std::move(connection) : Connect(real, options);
}

// A text of the database in 16-bit characters.
struct StoredText {
  String text;
  bool isExact = false;  // whether it is that text to the letter; bytes that are no UTF-8 are lost
};

class Statement {
 public:
  Statement(const Connection& connection, const char* sql) : database_(connection.get()) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v2(database_, sql, -1, &statement, nullptr);
    statement_.reset(statement);
    if (code != SQLITE_OK) throw Failure(database_);
  }

  /// Starts again, with a value of another statement's row in the place of ?1.
  void Start(const Statement& other, int column) {
    sqlite3_reset(statement_.get());
    sqlite3_bind_value(statement_.get(), 1, sqlite3_column_value(other.statement_.get(), column));
  }

  /// Goes to the next row, if there is one.
  bool Step() {
    const int code = sqlite3_step(statement_.get());
    if (code != SQLITE_ROW && code != SQLITE_DONE) throw Failure(database_);
    return code == SQLITE_ROW;
  }

  std::int64_t Number(int column) { return sqlite3_column_int64(statement_.get(), column); }

  StoredText Text(int column) {
    const auto* bytes =
        reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
    if (bytes == nullptr) return {{}, true};
    const std::string stored(
        bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column)));
    const auto* units =
        static_cast<const char16_t*>(sqlite3_column_text16(statement_.get(), column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes16(statement_.get(), column));
    StoredText result{String(units, size / sizeof(char16_t)), false};
    result.isExact = Utf8(result.text) == stored;
    return result;
  }

 private:
  sqlite3* database_;
  std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement_{nullptr, sqlite3_finalize};
};

// ---- columns

// Ordered as the rules of affinity are, behind those for dates.
struct TypeRule {
  StringView part;  // of the declared type, in lower case
  StringView word;
};

constexpr auto kTypeRules = std::to_array<TypeRule>({
    {u"date", u"date"},
    {u"time", u"date"},
    {u"int", u"long"},
    {u"char", u"char"},
    {u"clob", u"char"},
    {u"text", u"char"},
    {u"blob", u"blob"},
    {u"real", u"double"},
    {u"floa", u"double"},
    {u"doub", u"double"},
});

StringView TypeWord(StringView declared) {
  if (declared.empty()) return u"blob";
  const auto* rule = std::ranges::find_if(kTypeRules, [declared](const TypeRule& each) {
    return FindIgnoringCase(declared, each.part) != StringView::npos;
  });
  return rule == std::end(kTypeRules) ? u"decimal" : rule->word;
}

// Why a table or column can't be told by its name, "" when it can.
std::string WhyNoName(const StoredText& name) {
  if (name.text.empty()) return "it has no name";
  if (!name.isExact) return "its name is no valid text";
  return {};
}

std::string WhyNoColumn(const StoredText& name) {
  std::string reason = WhyNoName(name);
  if (!reason.empty()) return reason;
  const std::string notListed = WhyNotListed(name.text);
  return notListed.empty() ? std::string() : "its name " + notListed;
}

// The declared type as the text of a field, in which a comma can't stand.
String DeclaredText(const StoredText& declared, const std::string& column,
                    std::vector<std::string>& leftOut) {
  String text = Replace(declared.text, u",", u".");
  const std::string reason = declared.isExact ? WhyNotListed(text) : "is no valid text";
  if (reason.empty()) return text;
  leftOut.push_back(column + " comes without its declared type, which " + reason);
  return {};
}

// ---- tables

constexpr const char* kTables =
    "select name, type from sqlite_schema"
    " where type in ('table', 'view') and lower(substr(name, 1, 7)) <> 'sqlite_' order by rowid";
constexpr const char* kHasVirtualTables =
    "select exists(select 1 from sqlite_schema where type = 'table' and rootpage = 0)";
constexpr const char* kShadowTables =
    "select name from pragma_table_list where schema = 'main' and type = 'shadow'";
// Generated columns have numbers above 1.
constexpr const char* kColumns =
    "select name, type from pragma_table_xinfo(?1, 'main') where hidden <> 1 order by cid";
constexpr const char* kIndexCount = "select count(*) from pragma_index_list(?1, 'main')";

// The tables in which virtual tables keep what they hold.
std::set<String> ShadowTables(const Connection& connection) {
  std::set<String> names;
  Statement hasVirtualTables(connection, kHasVirtualTables);
  if (!hasVirtualTables.Step() || hasVirtualTables.Number(0) == 0) return names;
  Statement shadows(connection, kShadowTables);
  while (shadows.Step())
    names.insert(shadows.Text(0).text);
  return names;
}

class TableReader {
 public:
  TableReader(const Connection& connection, DatabaseCatalogue& result)
      : tables_(connection, kTables),
        columns_(connection, kColumns),
        indexCount_(connection, kIndexCount),
        shadows_(ShadowTables(connection)),
        result_(result) {}

  void ReadAll() {
    bool any = false;
    while (tables_.Step()) {
      any = true;
      ReadTable();
    }
    if (!any) Complain("has no tables");
  }

 private:
  void ReadTable() {
    // Bound before they are read as text, which turns the name into 16-bit characters.
    columns_.Start(tables_, 0);
    indexCount_.Start(tables_, 0);
    const StoredText name = tables_.Text(0);
    if (shadows_.contains(name.text)) return;
    std::string reason = WhyNoName(name);
    if (reason.empty()) reason = ReadNamed(name.text);
    if (reason.empty()) return;
    const std::string kind = Utf8(tables_.Text(1).text);
    result_.leftOut.push_back(kind + " " + Utf8(name.text) + " is left out: " + reason);
  }

  // Returns why the table is left out, "" when it is not.
  std::string ReadNamed(const String& name) {
    Table table;
    table.name = name;
    try {
      ReadColumns(table);
      indexCount_.Step();
      table.indexes = std::min<std::int64_t>(indexCount_.Number(0), Integer::kGreatest);
    } catch (const Failure& failure) {
      // A view of a table that is gone, a module that is not there: the rest can still be read.
      if (failure.Code() != SQLITE_ERROR) throw;
      return failure.what();
    }
    if (table.fields.empty()) return "no column of it is left";
    result_.catalogue.tables.push_back(std::move(table));
    return {};
  }

  void ReadColumns(Table& table) {
    while (columns_.Step()) {
      const StoredText name = columns_.Text(0);
      std::string column = "column ";
      column.append(Utf8(table.name)).append(".").append(Utf8(name.text));
      const std::string reason = WhyNoColumn(name);
      if (!reason.empty()) {
        result_.leftOut.push_back(column.append(" is left out: ").append(reason));
        continue;
      }
      const StoredText declared = columns_.Text(1);
      Field field;
      field.name = name.text;
      field.type = TypeWord(declared.text);
      field.flagged = field.type == u"date";
      field.text = DeclaredText(declared, column, result_.leftOut);
      table.fields.push_back(std::move(field));
    }
  }

  Statement tables_;
  Statement columns_;
  Statement indexCount_;
  std::set<String> shadows_;
  DatabaseCatalogue& result_;
};

// ---- codes

struct Range {
  char32_t first;
  char32_t last;
};

// The letters and digits beyond ASCII, in ascending order. Marks count as letters, and so do the
// few signs that stand between the letters of one script.
constexpr auto kLetters = std::to_array<Range>({
    {0x00AA, 0x00AA},   {0x00B5, 0x00B5},   {0x00BA, 0x00BA},   {0x00C0, 0x00D6},
    {0x00D8, 0x00F6},   {0x00F8, 0x02C1},   {0x02C6, 0x02D1},   {0x02E0, 0x02E4},
    {0x02EC, 0x02EC},   {0x02EE, 0x02EE},   {0x0300, 0x0374},   {0x0376, 0x037D},
    {0x037F, 0x037F},   {0x0386, 0x0386},   {0x0388, 0x03F5},   {0x03F7, 0x0481},
    {0x0483, 0x0559},   {0x0560, 0x0588},   {0x0591, 0x05BD},   {0x05BF, 0x05BF},
    {0x05C1, 0x05C2},   {0x05C4, 0x05C5},   {0x05C7, 0x05F2},   {0x0610, 0x061A},
    {0x0620, 0x0669},   {0x066E, 0x06D3},   {0x06D5, 0x06DC},   {0x06DF, 0x06E8},
    {0x06EA, 0x06FC},   {0x06FF, 0x07F5},   {0x07FA, 0x09F1},   {0x09FC, 0x0B6F},
    {0x0B71, 0x0BEF},   {0x0C00, 0x0C6F},   {0x0C80, 0x0D4E},   {0x0D54, 0x0D6F},
    {0x0D7A, 0x0F00},   {0x0F18, 0x0F19},   {0x0F20, 0x0F29},   {0x0F35, 0x0F35},
    {0x0F37, 0x0F37},   {0x0F39, 0x0FBC},   {0x0FC6, 0x0FC6},   {0x1000, 0x109D},
    {0x10A0, 0x135F},   {0x1380, 0x138F},   {0x13A0, 0x166C},   {0x166F, 0x167F},
    {0x1681, 0x17E9},   {0x180B, 0x193B},   {0x1946, 0x19D9},   {0x1A00, 0x1B59},
    {0x1B6B, 0x1B73},   {0x1B80, 0x1FFC},   {0x2071, 0x2071},   {0x207F, 0x207F},
    {0x2090, 0x209C},   {0x2102, 0x2102},   {0x2107, 0x2107},   {0x210A, 0x2113},
    {0x2115, 0x2115},   {0x2119, 0x211D},   {0x2124, 0x2124},   {0x2126, 0x2126},
    {0x2128, 0x2128},   {0x212A, 0x212D},   {0x212F, 0x2139},   {0x213C, 0x213F},
    {0x2145, 0x2149},   {0x214E, 0x214E},   {0x2160, 0x2188},   {0x2C00, 0x2CE4},
    {0x2CEB, 0x2CF3},   {0x2D00, 0x2D6F},   {0x2D7F, 0x2DFF},   {0x2E2F, 0x2E2F},
    {0x3005, 0x3007},   {0x3021, 0x302F},   {0x3031, 0x3035},   {0x3038, 0x303C},
    {0x3041, 0x309A},   {0x309D, 0x309F},   {0x30A1, 0x30FA},   {0x30FC, 0x318E},
    {0x31A0, 0x31BF},   {0x31F0, 0x31FF},   {0x3400, 0x4DBF},   {0x4E00, 0xA48C},
    {0xA4D0, 0xA6F1},   {0xA717, 0xA827},   {0xA82C, 0xA82C},   {0xA840, 0xAA76},
    {0xAA7A, 0xD7FB},   {0xF900, 0xFB28},   {0xFB2A, 0xFBB1},   {0xFBD3, 0xFD3D},
    {0xFD50, 0xFDC7},   {0xFDF0, 0xFDFB},   {0xFE20, 0xFE2F},   {0xFE70, 0xFEFC},
    {0xFF10, 0xFF19},   {0xFF21, 0xFF3A},   {0xFF41, 0xFF5A},   {0xFF66, 0xFFDC},
    {0x10000, 0x100FA}, {0x10140, 0x10174}, {0x101FD, 0x102E0}, {0x10300, 0x10876},
    {0x10880, 0x109BF}, {0x10A00, 0x10A3F}, {0x10A60, 0x10AC7}, {0x10AC9, 0x10D39},
    {0x10E80, 0x11046}, {0x11066, 0x111DC}, {0x11200, 0x115C0}, {0x115D8, 0x11739},
    {0x11740, 0x11C59}, {0x11C72, 0x11FB0}, {0x12000, 0x16B36}, {0x16B40, 0x16B43},
    {0x16B50, 0x16E7F}, {0x16F00, 0x1BC99}, {0x1BC9D, 0x1CF46}, {0x1D165, 0x1D169},
    {0x1D16D, 0x1D182}, {0x1D185, 0x1D18B}, {0x1D1AA, 0x1D1AD}, {0x1D242, 0x1D244},
    {0x1D400, 0x1D7FF}, {0x1DA00, 0x1DA36}, {0x1DA3B, 0x1DA6C}, {0x1DA75, 0x1DA75},
    {0x1DA84, 0x1DA84}, {0x1DA9B, 0x1E14E}, {0x1E290, 0x1E959}, {0x1EE00, 0x1EEBB},
    {0x1FBF0, 0x3134A},
});

bool IsLetterOrDigit(char32_t character) {
  if (character < 0x80) {
    return (character >= U'0' && character <= U'9') || (character >= U'A' && character <= U'Z') ||
           (character >= U'a' && character <= U'z');
  }
  const auto* range = std::ranges::lower_bound(kLetters, character, {}, &Range::last);
  return range != std::end(kLetters) && range->first <= character;
}

bool IsHigh(char16_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLow(char16_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

// The name with "_" for each character that a code can't hold.
String InLettersAndDigits(StringView name) {
  String result;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const bool isPair = IsHigh(name[i]) && i + 1 < name.size() && IsLow(name[i + 1]);
    const StringView units = name.substr(i, isPair ? 2 : 1);
    const char32_t character =
        isPair ? 0x10000 + ((units[0] - 0xD800U) << 10U) + (units[1] - 0xDC00U) : units[0];
    if (IsLetterOrDigit(character)) {
      result += units;
    } else {
      result += u'_';
    }
    i += units.size() - 1;
  }
  return result;
}

// Cut or filled up to that length. Half of a pair does not stay.
String OfLength(StringView text, std::size_t length) {
  String result(text.substr(0, length));
  if (text.size() > length && length > 0 && IsHigh(result.back())) result.pop_back();
  result.resize(length, u'_');
  return result;
}

class Codes {
 public:
  /// Whether the code was free; it is not any more.
  bool Take(StringView code) { return taken_.insert(LowerCase(code)).second; }

  /// Takes the code that the letters and digits make, with a number where it needs one.
  String Make(StringView letters) {
    String code = OfLength(letters, kCodeLength);
    std::int64_t least = 1;  // of as many digits as `digits`
    for (std::size_t digits = 1; !Take(code); ++digits, least *= 10) {
      const String beginning = OfLength(letters, kCodeLength - digits);
      std::int64_t& next = next_.try_emplace(LowerCase(beginning), least).first->second;
      while (next < least * 10) {
        code = Concat(beginning, FromAscii(std::to_string(next++)));
        if (Take(code)) return code;
      }
    }
    return code;
  }

 private:
  std::set<String> taken_;  // in lower case
  // The number to try next behind each beginning, in lower case, so that none is tried twice.
  std::map<String, std::int64_t> next_;
};

// Names that are codes keep theirs, whatever stands before them.
void GiveCodes(std::vector<Table>& tables) {
  Codes codes;
  for (Table& table : tables) {
    const bool isCode =
        table.name.size() == kCodeLength && table.name == InLettersAndDigits(table.name);
    if (isCode && codes.Take(table.name)) table.code = table.name;
  }
  for (Table& table : tables) {
    if (table.code.empty()) table.code = codes.Make(InLettersAndDigits(table.name));
  }
}

}  // namespace

bool IsDatabase(const fs::path& file) {
  std::error_code ignored;
  const fs::path real = fs::canonical(file, ignored);
  if (!fs::is_regular_file(real, ignored)) return false;
  try {
    return !Beginning(Connect(real, {})).empty();
  } catch (const Failure&) {
    return false;
  }
}

DatabaseCatalogue ReadDatabase(const fs::path& file) {
  try {
    const Connection connection = Open(file);
    DatabaseCatalogue result;
    result.catalogue.name = hosts::FromJsonText(PathText(file.stem()));
    result.catalogue.functions = {{u"count", {u"value"}},
                                  {u"sum", {u"number"}},
                                  {u"avg", {u"number"}},
                                  {u"min", {u"value"}},
                                  {u"max", {u"value"}}};
    Statement(connection, "begin").Step();  // so that all is read of one state
    TableReader(connection, result).ReadAll();
    GiveCodes(result.catalogue.tables);
    return result;
  } catch (const Failure& failure) {
    Complain(failure);
  }
}

}  // namespace zolt20::catalogue
