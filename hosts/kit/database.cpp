#include "hosts/kit/database.h"

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <utility>

#include "hosts/kit/found_tables.h"
#include "hosts/kit/functions.h"
#include "hosts/kit/table_codes.h"
#include "hosts/kit/text_coding.h"
#include "hosts/kit/type_words.h"

namespace zolt20::catalogue {
namespace {

namespace fs = std::filesystem;

constexpr int kBusyTimeoutMilliseconds = 1000;

using hosts::Message;

[[noreturn]] void Complain(const Message& complaint) {
  throw CatalogueError(Message("the database %1", complaint));
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
  const std::string name = PathText(file);
  if (status.type() == fs::file_type::not_found)
    Complain(Message("can't be read: there is no %1", name));
  if (error) Complain(Message("can't be read: %1: %2", name, error.message()));
  if (fs::is_directory(status)) Complain(Message("can't be read: %1 is a folder", name));
  if (!fs::is_regular_file(status)) Complain(Message("can't be read: %1 is no file", name));
}

// A journal or log of an interrupted program needs a recovery, for which a program has to write.
[[noreturn]] void ComplainOfWaitingChanges() {
  Complain(
      Message("can't be read: changes in it wait to be finished; open it once with the program "
              "that it belongs to"));
}

bool HasBytes(const fs::path& file) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(file, error);
  return !error && size > 0;
}

// The URI options to open a file with this beginning so that no file is left beside it. A reader of
// a database in WAL mode would create the log and its index if they are missing, and not remove
// them. If they are missing, nobody has the database open and all of it is in the one file.
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

// The file as a URI. All bytes are percent-encoded, except ASCII letters, digits and slashes.
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

// An error of SQLite, with its message.
class Failure : public std::runtime_error {
 public:
  explicit Failure(sqlite3* database)
      : std::runtime_error(Reason(database)), code_(sqlite3_errcode(database) & 0xFF) {}

  int Code() const { return code_; }

 private:
  // Read as 16-bit characters, since a name in the message need not be valid UTF-8.
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
      Complain(Message("can't be read: another program has locked it"));
    case SQLITE_READONLY:
      ComplainOfWaitingChanges();
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      Complain(Message("is damaged or encrypted: %1", std::string(failure.what())));
    default:
      Complain(Message("can't be read: %1", std::string(failure.what())));
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

// The first bytes of the file, "" when they are not those of a database. Not read by a stream:
// closing one drops the POSIX locks that all connections of this program have on the file.
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
  // SQLite keeps journal and log beside the real file, not beside a link to it.
  std::error_code error;
  const fs::path real = fs::canonical(file, error);
  if (error) Complain(Message("can't be read: %1: %2", PathText(file), error.message()));
  Connection connection = Connect(real, {});
  const std::string beginning = Beginning(connection);
  if (beginning.empty()) {
    Complain(
        Message("can't be read: %1 is no SQLite database, or an encrypted one", PathText(file)));
  }
  const std::string options = OpeningOptions(real, beginning);
  return options.empty() ? std::move(connection) : Connect(real, options);
}

class Statement {
 public:
  Statement(const Connection& connection, const char* sql) : database_(connection.get()) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v2(database_, sql, -1, &statement, nullptr);
    statement_.reset(statement);
    if (code != SQLITE_OK) throw Failure(database_);
  }

  /// Resets the statement, and binds a column of another statement's row to ?1.
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

// ---- tables

constexpr const char* kTables =
    "select name, type from sqlite_schema"
    " where type in ('table', 'view') and lower(substr(name, 1, 7)) <> 'sqlite_' order by rowid";
constexpr const char* kHasVirtualTables =
    "select exists(select 1 from sqlite_schema where type = 'table' and rootpage = 0)";
constexpr const char* kShadowTables =
    "select name from pragma_table_list where schema = 'main' and type = 'shadow'";
// `hidden` is 1 for hidden columns, and above 1 for generated ones, which are read.
constexpr const char* kColumns =
    "select name, type from pragma_table_xinfo(?1, 'main') where hidden <> 1 order by cid";
constexpr const char* kIndexCount = "select count(*) from pragma_index_list(?1, 'main')";

// The shadow tables, in which virtual tables keep their content. No catalogue lists them.
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
    if (!any) Complain(Message("has no tables"));
  }

 private:
  void ReadTable() {
    // Bound before Text(), which converts the stored name to 16-bit characters.
    columns_.Start(tables_, 0);
    indexCount_.Start(tables_, 0);
    FoundTable table;
    table.name = tables_.Text(0);
    table.kind = Utf8(tables_.Text(1).text);
    if (shadows_.contains(table.name.text)) return;
    try {
      while (columns_.Step()) {
        StoredText declared = columns_.Text(1);
        const StringView word = TypeWordByAffinity(declared.text);
        table.columns.push_back({columns_.Text(0), std::move(declared), word});
      }
      indexCount_.Step();
      table.indexes = indexCount_.Number(0);
    } catch (const Failure& failure) {
      // For example a view of a missing table, or a missing module: other tables can still be read.
      if (failure.Code() != SQLITE_ERROR) throw;
      table.unreadable = failure.what();
    }
    AddTable(result_, table);
  }

  Statement tables_;
  Statement columns_;
  Statement indexCount_;
  std::set<String> shadows_;
  DatabaseCatalogue& result_;
};

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
    result.catalogue.functions = SqliteFunctions();
    Statement(connection, "begin").Step();  // one transaction, to read one consistent state
    TableReader(connection, result).ReadAll();
    GiveCodes(result.catalogue.tables);
    return result;
  } catch (const Failure& failure) {
    Complain(failure);
  }
}

}  // namespace zolt20::catalogue
