#include "hosts/kit/database.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "hosts/kit/functions.h"
#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

namespace fs = std::filesystem;

using catalogue::CatalogueError;
using catalogue::DatabaseCatalogue;
using catalogue::FieldList;
using catalogue::IsDatabase;
using catalogue::ReadDatabase;
using catalogue::Table;
using catalogue::TableList;

Texts LeftOut(const DatabaseCatalogue& read) {
  Texts lines;
  for (const hosts::Message& line : read.leftOut)
    lines.push_back(line.English());
  return lines;
}

// A connection that may write.
class Writer {
 public:
  explicit Writer(const fs::path& file) {
    EXPECT_EQ(sqlite3_open(file.c_str(), &database_), SQLITE_OK);
  }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;
  ~Writer() { sqlite3_close(database_); }

  void Run(const std::string& sql) {
    EXPECT_EQ(sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database_) << " in " << sql;
  }

 private:
  sqlite3* database_ = nullptr;
};

// A folder of its own for each test, with files made in it.
class Folder {
 public:
  Folder() {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string("zolt20-") + test->test_suite_name() + "-" + test->name();
    std::replace(name.begin(), name.end(), '/', '-');
    path_ = fs::temp_directory_path() / (name + "-" + std::to_string(getpid()));
    fs::remove_all(path_);
    fs::create_directories(path_);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() { fs::remove_all(path_); }

  fs::path Path(const std::string& name) const { return path_ / name; }

  fs::path Database(const std::string& sql, const std::string& name = "Orders.db") const {
    Writer(Path(name)).Run(sql);
    return Path(name);
  }

  fs::path File(const std::string& name, const std::string& bytes) const {
    std::ofstream(Path(name), std::ios::binary) << bytes;
    return Path(name);
  }

  // What is in the folder: each file's bytes by its name.
  std::map<std::string, std::string> Files() const {
    std::map<std::string, std::string> files;
    for (const fs::directory_entry& file : fs::directory_iterator(path_)) {
      std::ifstream input(file.path(), std::ios::binary);
      files[file.path().filename().string()] =
          std::string(std::istreambuf_iterator<char>(input), {});
    }
    return files;
  }

 private:
  fs::path path_;
};

class DatabaseTest : public ::testing::Test {
 protected:
  DatabaseCatalogue Read(const std::string& sql) const {
    return ReadDatabase(folder_.Database(sql));
  }

  // The codes of tables of these names, in their order.
  Texts CodesOf(const Texts& names) const {
    std::string sql;
    for (const std::string& name : names)
      sql += "create table \"" + name + "\" (a);";
    Texts codes;
    const DatabaseCatalogue result = Read(sql);
    EXPECT_EQ(LeftOut(result), Texts{});
    EXPECT_EQ(result.catalogue.tables.size(), names.size());
    for (std::size_t i = 0; i < result.catalogue.tables.size() && i < names.size(); ++i) {
      EXPECT_EQ(Narrow(result.catalogue.tables[i].name), names[i]);
      EXPECT_EQ(result.catalogue.tables[i].code.size(), 8U);
      codes.push_back(Narrow(result.catalogue.tables[i].code));
    }
    return codes;
  }

  // What the reading complains of, "" when it complains of nothing.
  static std::string ComplaintOf(const fs::path& file) {
    try {
      ReadDatabase(file);
    } catch (const CatalogueError& error) {
      return error.what();
    }
    return {};
  }

  const Folder folder_;
};

Texts TableNames(const DatabaseCatalogue& result) {
  Texts names;
  for (const Table& table : result.catalogue.tables)
    names.push_back(Narrow(table.name));
  return names;
}

Texts FieldNames(const Table& table) {
  Texts names;
  for (const catalogue::Field& field : table.fields)
    names.push_back(Narrow(field.name));
  return names;
}

// ---- what is told

TEST_F(DatabaseTest, TheCatalogueIsNamedByTheFileWithoutItsEnding) {
  const fs::path file = folder_.Database("create table ITEM (a)", "Ordres à 100%?#.v2.db");
  EXPECT_EQ(Narrow(ReadDatabase(file).catalogue.name), "Ordres à 100%?#.v2");
}

TEST_F(DatabaseTest, TheFunctionsAreThoseOfSqlite) {
  Texts told;
  for (const catalogue::Function& function : Read("create table ITEM (a)").catalogue.functions)
    told.push_back(Narrow(function.name));
  Texts listed;
  for (const catalogue::Function& function : catalogue::SqliteFunctions())
    listed.push_back(Narrow(function.name));
  EXPECT_EQ(told, listed);
  EXPECT_GT(told.size(), 80U);
}

TEST_F(DatabaseTest, TablesAndViewsStandInTheOrderOfTheirMaking) {
  EXPECT_EQ(TableNames(Read("create table b (x); create view z as select x from b;"
                            "create table a (x); create view c as select x from a;")),
            (Texts{"b", "z", "a", "c"}));
}

TEST_F(DatabaseTest, ATableWithoutRowsIsToldAsOneWithRows) {
  const DatabaseCatalogue result = Read(
      "create table none (a int, b text); create table some (a int, b text);"
      "insert into some values (1, 'x');");
  ASSERT_EQ(result.catalogue.tables.size(), 2U);
  EXPECT_EQ(FieldNames(result.catalogue.tables[0]), (Texts{"a", "b"}));
  EXPECT_EQ(FieldNames(result.catalogue.tables[1]), (Texts{"a", "b"}));
}

TEST_F(DatabaseTest, InternalTablesAreNotTold) {
  const DatabaseCatalogue result = Read(
      "create table t (a integer primary key autoincrement, b unique);"
      "insert into t values (1, 2); analyze; create table sqliteXt (a);");
  EXPECT_EQ(TableNames(result), (Texts{"t", "sqliteXt"}));
  EXPECT_EQ(LeftOut(result), Texts{});
}

TEST_F(DatabaseTest, OfAVirtualTableNeitherItsStoresNorItsHiddenColumnsAreTold) {
  if (sqlite3_compileoption_used("ENABLE_FTS5") == 0) GTEST_SKIP() << "SQLite comes without fts5";
  const DatabaseCatalogue result =
      Read("create virtual table notes using fts5(title, body); create table notes_1 (a);");
  EXPECT_EQ(TableNames(result), (Texts{"notes", "notes_1"}));
  EXPECT_EQ(FieldNames(result.catalogue.tables.at(0)), (Texts{"title", "body"}));
  EXPECT_EQ(LeftOut(result), Texts{});
}

TEST_F(DatabaseTest, GeneratedColumnsAreTold) {
  const DatabaseCatalogue result = Read(
      "create table t (a int, b int generated always as (a + 1) virtual,"
      " c text generated always as (a || 'x') stored);");
  EXPECT_EQ(FieldNames(result.catalogue.tables.at(0)), (Texts{"a", "b", "c"}));
}

TEST_F(DatabaseTest, ATableWithoutRowNumbersIsTold) {
  const DatabaseCatalogue result = Read("create table t (a text primary key, b) without rowid");
  EXPECT_EQ(FieldNames(result.catalogue.tables.at(0)), (Texts{"a", "b"}));
}

TEST_F(DatabaseTest, ADatabaseIn16BitCharactersIsTold) {
  const DatabaseCatalogue result =
      Read("pragma encoding = 'UTF-16le'; create table \"größe😀\" (\"länge\" text);");
  EXPECT_EQ(TableNames(result), Texts{"größe😀"});
  EXPECT_EQ(FieldNames(result.catalogue.tables.at(0)), Texts{"länge"});
}

TEST_F(DatabaseTest, IndexesOfConstraintsExpressionsAndPartsOfATableCount) {
  // A primary key that is the row number itself has no index.
  const DatabaseCatalogue result = Read(
      "create table bare (a integer primary key, b);"
      "create table keyed (a text primary key, b unique, c, unique (b, c));"
      "create table made (a, b);"
      "create index i1 on made (a); create index i2 on made (lower(b));"
      "create index i3 on made (a) where b > 0;"
      "create table norowid (a text primary key) without rowid;"
      "create view v as select a from keyed;");
  EXPECT_EQ(Narrow(TableList(result.catalogue)),
            "bare____0,keyed___3,made____3,norowid_1,v_______0");
}

// ---- codes

TEST_F(DatabaseTest, ANameOfEightCharactersIsTheCode) {
  EXPECT_EQ(CodesOf({"CUSTOMER", "order_01", "12345678"}),
            (Texts{"CUSTOMER", "order_01", "12345678"}));
}

TEST_F(DatabaseTest, AShorterNameIsFilledUp) {
  EXPECT_EQ(CodesOf({"ORDERS", "a", "STOCK_1"}), (Texts{"ORDERS__", "a_______", "STOCK_1_"}));
}

TEST_F(DatabaseTest, ALongerNameIsCut) {
  EXPECT_EQ(CodesOf({"WAREHOUSE", "order_line_items"}), (Texts{"WAREHOUS", "order_li"}));
}

TEST_F(DatabaseTest, WhereACodeIsTakenItsEndGivesWayToANumber) {
  Texts names{"CUSTOMER"};
  Texts codes{"CUSTOMER"};
  for (int i = 1; i <= 105; ++i) {
    const std::string number = std::to_string(i);
    names.push_back("CUSTOMER_" + number);
    codes.push_back(std::string("CUSTOMER").substr(0, 8 - number.size()) + number);
  }
  EXPECT_EQ(codes[9], "CUSTOME9");
  EXPECT_EQ(codes[10], "CUSTOM10");
  EXPECT_EQ(codes[105], "CUSTO105");
  EXPECT_EQ(CodesOf(names), codes);
}

TEST_F(DatabaseTest, ANameOfEightCharactersKeepsItsCodeWhateverStandsBeforeIt) {
  EXPECT_EQ(CodesOf({"CUSTOMERS", "CUSTOMER_OLD", "CUSTOME1", "CUSTOMER"}),
            (Texts{"CUSTOME2", "CUSTOME3", "CUSTOME1", "CUSTOMER"}));
}

TEST_F(DatabaseTest, AFilledUpNameGivesWayInItsFilling) {
  EXPECT_EQ(CodesOf({"ORDERS__", "ORDERS"}), (Texts{"ORDERS__", "ORDERS_1"}));
}

TEST_F(DatabaseTest, CodesDifferBeyondLetterCase) {
  EXPECT_EQ(CodesOf({"customer", "CUSTOMERS", "Customer_old", "ORDERLIST", "orderlist2"}),
            (Texts{"customer", "CUSTOME1", "Custome2", "ORDERLIS", "orderli1"}));
}

TEST_F(DatabaseTest, CodesDifferBeyondTheCaseOfLettersThatOnlyTheControlHoldsEqual) {
  EXPECT_EQ(CodesOf({"MARCHÉ_1", "MARCHé_1"}), (Texts{"MARCHÉ_1", "MARCHé_2"}));
}

TEST_F(DatabaseTest, CodesOfOneBeginningAndManyEndsDiffer) {
  // The two cut names differ in just the character that gives way.
  EXPECT_EQ(CodesOf({"ORDERS_A1", "ORDERS_A2", "ORDERS_B1", "ORDERS_B2", "ORDERS_A3"}),
            (Texts{"ORDERS_A", "ORDERS_1", "ORDERS_B", "ORDERS_2", "ORDERS_3"}));
}

TEST_F(DatabaseTest, WhatIsNeitherLetterNorDigitBecomesALowLine) {
  EXPECT_EQ(CodesOf({"my table", "a.b,c:d", "[x]'`(y)", "a-b+c", "semi;col", "x*Q*V*R*N*y"}),
            (Texts{"my_table", "a_b_c_d_", "_x____y_", "a_b_c___", "semi_col", "x_Q_V_R_"}));
}

TEST_F(DatabaseTest, AQuoteInANameBecomesALowLine) {
  const DatabaseCatalogue result = Read("create table \"a\"\"b\" (x)");
  EXPECT_EQ(TableNames(result), Texts{"a\"b"});
  EXPECT_EQ(Narrow(TableList(result.catalogue)), "a_b_____0");
}

TEST_F(DatabaseTest, LettersAndDigitsOfAnyScriptStay) {
  EXPECT_EQ(CodesOf({"Übergröß", "заказы", "注文明細", "παραγγελία", "طلبات", "٣٤", "e\u0301te"}),
            (Texts{"Übergröß", "заказы__", "注文明細____", "παραγγελ", "طلبات___", "٣٤______",
                   "e\u0301te____"}));
}

TEST_F(DatabaseTest, SignsOfAnyScriptBecomeLowLines) {
  // A no-break space, a middle dot, dashes and quotes, full stops, a euro, a multiplication sign.
  EXPECT_EQ(CodesOf({"a\u00A0b\u00B7c", "d\u2013e\u2019f", "注文。明細", "g\uFF0Eh€i×j"}),
            (Texts{"a_b_c___", "d_e_f___", "注文_明細___", "g_h_i_j_"}));
}

TEST_F(DatabaseTest, AnEmojiBecomesOneLowLineAlsoAtTheCut) {
  EXPECT_EQ(CodesOf({"😀", "ABCDEFG😀", "12345678😀", "a😀b"}),
            (Texts{"________", "ABCDEFG_", "12345678", "a_b_____"}));
}

TEST_F(DatabaseTest, ALetterOfTwoUnitsIsNeverCutInHalf) {
  // Such a letter counts as two characters: it fits into the second name and not into the third.
  EXPECT_EQ(CodesOf({"𠀀", "ABCDEF𠀀", "ABCDEFG𠀀", "ABCDEF𠀀X"}),
            (Texts{"𠀀______", "ABCDEF𠀀", "ABCDEFG_", "ABCDEF_1"}));
}

// ---- columns

TEST_F(DatabaseTest, ColumnsWhoseNamesCantBeListedAreLeftOutAndTold) {
  const DatabaseCatalogue result =
      Read("create table t (a, \"b,c\", \"d*Q*V*R*N*e\", \"f*Q*V*R*N\", \"\", \"g h.i'j\", k)");
  EXPECT_EQ(FieldNames(result.catalogue.tables.at(0)), (Texts{"a", "g h.i'j", "k"}));
  EXPECT_EQ(LeftOut(result),
            (Texts{"column t.b,c is left out: its name holds a comma",
                   "column t.d*Q*V*R*N*e is left out: its name holds the separator *Q*V*R*N* or "
                   "runs into it",
                   "column t.f*Q*V*R*N is left out: its name holds the separator *Q*V*R*N* or runs "
                   "into it",
                   "column t. is left out: it has no name"}));
}

TEST_F(DatabaseTest, ColumnsWhoseNamesAreNoValidTextAreLeftOutAndTold) {
  // Both would come as the same replacement character.
  const DatabaseCatalogue result = Read("create table t (\"\xFF\", \"\xFE\", a)");
  EXPECT_EQ(FieldNames(result.catalogue.tables.at(0)), Texts{"a"});
  EXPECT_EQ(LeftOut(result), (Texts{"column t.\uFFFD is left out: its name is no valid text",
                                    "column t.\uFFFD is left out: its name is no valid text"}));
}

TEST_F(DatabaseTest, NamesKeepEveryCharacter) {
  const Texts names{"\U0010FFFF", "a\u0301", "\\ud800", "\t", "line\r\nbreak", "*"};
  std::string columns;
  for (const std::string& name : names)
    columns += (columns.empty() ? "\"" : ", \"") + name + "\"";
  const DatabaseCatalogue result = Read("create table t (" + columns + ")");
  EXPECT_EQ(LeftOut(result), Texts{});
  ASSERT_EQ(result.catalogue.tables.at(0).fields.size(), names.size());
  EXPECT_EQ(result.catalogue.tables[0].fields[0].name, u"\U0010FFFF");
  EXPECT_EQ(result.catalogue.tables[0].fields[1].name, u"a\u0301");
  EXPECT_EQ(result.catalogue.tables[0].fields[2].name, u"\\ud800");
  EXPECT_EQ(result.catalogue.tables[0].fields[3].name, u"\t");
  EXPECT_EQ(result.catalogue.tables[0].fields[4].name, u"line\r\nbreak");
  EXPECT_EQ(result.catalogue.tables[0].fields[5].name, u"*");
}

TEST_F(DatabaseTest, ATableOfWhichNoColumnIsLeftIsLeftOutAndTold) {
  const DatabaseCatalogue result = Read("create table a (x); create table b (\"y,z\")");
  EXPECT_EQ(TableNames(result), Texts{"a"});
  EXPECT_EQ(LeftOut(result), (Texts{"column b.y,z is left out: its name holds a comma",
                                    "table b is left out: no column of it is left"}));
}

TEST_F(DatabaseTest, ATableLeftOutTakesNoCode) {
  const DatabaseCatalogue result =
      Read("create table CUSTOMER (\"y,z\"); create table CUSTOMERS (x)");
  EXPECT_EQ(Narrow(TableList(result.catalogue)), "CUSTOMER0");
}

TEST_F(DatabaseTest, ATableWithoutANameIsLeftOutAndTold) {
  const DatabaseCatalogue result = Read("create table a (x); create table \"\" (x)");
  EXPECT_EQ(TableNames(result), Texts{"a"});
  EXPECT_EQ(LeftOut(result), Texts{"table  is left out: it has no name"});
}

TEST_F(DatabaseTest, WhenAllIsLeftOutTheCatalogueHasNoTables) {
  const DatabaseCatalogue result = Read("create table b (\"y,z\")");
  EXPECT_EQ(Narrow(TableList(result.catalogue)), "");
  EXPECT_EQ(Narrow(FieldList(result.catalogue)), "");
  EXPECT_EQ(result.leftOut.size(), 2U);
}

TEST_F(DatabaseTest, ADeclaredTypeIsTheTextWithPointsForCommas) {
  const DatabaseCatalogue result =
      Read("create table t (a numeric(12,2), b, c \"Odd, [type]\", d varchar (10) not null)");
  EXPECT_EQ(Narrow(FieldList(result.catalogue)),
            "decimal*Q*V*R*N*Nt_______.a*Q*V*R*N*numeric(12.2),"
            "blob*Q*V*R*N*Nt_______.b*Q*V*R*N*,"
            "decimal*Q*V*R*N*Nt_______.c*Q*V*R*N*Odd. [type],"
            "char*Q*V*R*N*Nt_______.d*Q*V*R*N*varchar (10)");
  EXPECT_EQ(LeftOut(result), Texts{});
}

TEST_F(DatabaseTest, ADeclaredTypeThatCantBeListedIsDroppedAndTold) {
  const DatabaseCatalogue result = Read("create table t (a \"int *Q*V*R*N* b\", b int)");
  EXPECT_EQ(Narrow(FieldList(result.catalogue)),
            "long*Q*V*R*N*Nt_______.a*Q*V*R*N*,long*Q*V*R*N*Nt_______.b*Q*V*R*N*INT");
  EXPECT_EQ(LeftOut(result), Texts{"column t.a comes without its declared type, which holds the "
                                   "separator *Q*V*R*N* or runs into it"});
}

struct DeclaredType {
  const char* declared;
  const char* word;
};

void PrintTo(const DeclaredType& type, std::ostream* out) {
  *out << type.declared;
}

class DeclaredTypeTest : public DatabaseTest, public ::testing::WithParamInterface<DeclaredType> {};

TEST_P(DeclaredTypeTest, GivesTheTypeWordAndFlagsDatesAlone) {
  const DatabaseCatalogue result =
      Read(std::string("create table t (a ") + GetParam().declared + ")");
  const catalogue::Field& field = result.catalogue.tables.at(0).fields.at(0);
  EXPECT_EQ(Narrow(field.type), GetParam().word);
  EXPECT_EQ(field.flagged, field.type == u"date");
}

// The first that fits counts, so "charint" is a whole number.
constexpr DeclaredType kTypes[] = {
    {"date", "date"},       {"DateTime", "date"},      {"TIMESTAMP", "date"},
    {"time(3)", "date"},    {"int_date", "date"},      {"integer", "long"},
    {"BigInt", "long"},     {"charint", "long"},       {"varchar(20)", "char"},
    {"NCHAR(2)", "char"},   {"clob", "char"},          {"Text", "char"},
    {"text_blob", "char"},  {"blob", "blob"},          {"", "blob"},
    {"real", "double"},     {"float", "double"},       {"double precision", "double"},
    {"blob_real", "blob"},  {"numeric(5)", "decimal"}, {"decimal(10,5)", "decimal"},
    {"boolean", "decimal"}, {"money", "decimal"},      {"floating_point", "long"},
};

INSTANTIATE_TEST_SUITE_P(Each, DeclaredTypeTest, ::testing::ValuesIn(kTypes));

// ---- views

TEST_F(DatabaseTest, AViewHasTheColumnsOfItsSelectAndTheTypesOfTheirTables) {
  const DatabaseCatalogue result =
      Read("create table t (a int, b date); create view v (x, y) as select b, a from t;");
  EXPECT_EQ(Narrow(FieldList(result.catalogue)),
            "long*Q*V*R*N*Nt_______.a*Q*V*R*N*INT,"
            "date*Q*V*R*N*Yt_______.b*Q*V*R*N*date,"
            "date*Q*V*R*N*Yv_______.x*Q*V*R*N*date,"
            "long*Q*V*R*N*Nv_______.y*Q*V*R*N*INT");
}

TEST_F(DatabaseTest, AViewThatCantBeReadIsLeftOutAndToldWithTheReason) {
  const DatabaseCatalogue result = Read(
      "create table t (a int); create table gone (a int);"
      "create view first as select a from gone; create view second as select a from t;"
      "create view third as select b from t; drop table gone;");
  EXPECT_EQ(TableNames(result), (Texts{"t", "second"}));
  EXPECT_EQ(LeftOut(result), (Texts{"view first is left out: no such table: main.gone",
                                    "view third is left out: no such column: b"}));
}

TEST_F(DatabaseTest, WhatIsLeftOutIsToldInTheOrderOfTheDatabase) {
  const DatabaseCatalogue result = Read(
      "create table z (\"1,2\", a); create view y as select a from gone;"
      "create table x (\"3,4\", a);");
  EXPECT_EQ(LeftOut(result), (Texts{"column z.1,2 is left out: its name holds a comma",
                                    "view y is left out: no such table: main.gone",
                                    "column x.3,4 is left out: its name holds a comma"}));
}

TEST_F(DatabaseTest, ATableOfAModuleThatIsNotThereIsLeftOutAndTold) {
  const fs::path file = folder_.Database("create table a (x)");
  Writer(file).Run(
      "pragma writable_schema = on; insert into sqlite_schema values"
      " ('table', 'maps', 'maps', 0, 'create virtual table maps using nomodule(x)');");
  const DatabaseCatalogue result = ReadDatabase(file);
  EXPECT_EQ(TableNames(result), Texts{"a"});
  EXPECT_EQ(LeftOut(result), Texts{"table maps is left out: no such module: nomodule"});
}

// ---- files that are no database, and databases that can't be read

TEST_F(DatabaseTest, AFileThatIsNotThereIsComplainedOfAndNotMade) {
  const fs::path missing = folder_.Path("none.db");
  EXPECT_EQ(ComplaintOf(missing), "the database can't be read: there is no " + missing.string());
  EXPECT_FALSE(IsDatabase(missing));
  EXPECT_FALSE(fs::exists(missing));
}

TEST_F(DatabaseTest, AFolderIsComplainedOf) {
  const fs::path folder = folder_.Path("");
  EXPECT_EQ(ComplaintOf(folder), "the database can't be read: " + folder.string() + " is a folder");
  EXPECT_FALSE(IsDatabase(folder));
}

TEST_F(DatabaseTest, ADeviceIsComplainedOf) {
  EXPECT_EQ(ComplaintOf("/dev/null"), "the database can't be read: /dev/null is no file");
  EXPECT_FALSE(IsDatabase("/dev/null"));
}

TEST_F(DatabaseTest, FilesThatAreNoDatabaseAreComplainedOf) {
  const fs::path files[] = {folder_.File("empty.db", ""), folder_.File("text.db", "SQLite"),
                            folder_.File("page.db", std::string(4096, 'x'))};
  for (const fs::path& file : files) {
    EXPECT_EQ(ComplaintOf(file), "the database can't be read: " + file.string() +
                                     " is no SQLite database, or an encrypted one");
    EXPECT_FALSE(IsDatabase(file));
  }
}

TEST_F(DatabaseTest, AFileWithoutRightsIsComplainedOf) {
  const fs::path file = folder_.Database("create table a (x)");
  fs::permissions(file, fs::perms::none);
  constexpr uid_t kNobody = 65534;
  const bool wasRoot = geteuid() == 0;  // who may read every file
  if (wasRoot && seteuid(kNobody) != 0) GTEST_SKIP() << "root can't become anybody else here";
  const std::string complaint = ComplaintOf(file);
  const bool isDatabase = IsDatabase(file);
  if (wasRoot && seteuid(0) != 0) FAIL() << "root stays somebody else";
  EXPECT_EQ(complaint,
            "the database can't be read: unable to open database file: Permission denied");
  EXPECT_FALSE(isDatabase);
}

TEST_F(DatabaseTest, ADatabaseIsOneByItsBeginning) {
  EXPECT_TRUE(IsDatabase(folder_.Database("create table a (x)", "no ending")));
}

TEST_F(DatabaseTest, ADatabaseBehindALinkIsRead) {
  const fs::path file = folder_.Database("create table a (x)");
  fs::create_symlink(file, folder_.Path("link.db"));
  const DatabaseCatalogue result = ReadDatabase(folder_.Path("link.db"));
  EXPECT_EQ(Narrow(result.catalogue.name), "link");
  EXPECT_EQ(TableNames(result), Texts{"a"});
}

TEST_F(DatabaseTest, ADatabaseWithNoTablesIsComplainedOf) {
  EXPECT_EQ(ComplaintOf(folder_.Database("create table t (a); drop table t;")),
            "the database has no tables");
}

TEST_F(DatabaseTest, ATruncatedDatabaseIsComplainedOf) {
  const fs::path file = folder_.Database(
      "create table a (x); create table b (x); create table c (x); create table d (x);");
  fs::resize_file(file, fs::file_size(file) / 2);
  EXPECT_EQ(ComplaintOf(file),
            "the database is damaged or encrypted: database disk image is malformed");
}

TEST_F(DatabaseTest, ADatabaseCutWithinItsBeginningIsComplainedOf) {
  const fs::path file = folder_.Database("create table a (x)");
  fs::resize_file(file, 50);
  EXPECT_TRUE(ComplaintOf(file).starts_with("the database is damaged or encrypted: "))
      << ComplaintOf(file);
  fs::resize_file(file, 18);
  EXPECT_EQ(ComplaintOf(file), "the database can't be read: " + file.string() +
                                   " is no SQLite database, or an encrypted one");
}

TEST_F(DatabaseTest, ADamagedSchemaIsComplainedOf) {
  const fs::path file = folder_.Database(
      "create table a (x); pragma writable_schema = on;"
      "update sqlite_schema set sql = 'create table a (';");
  const std::string complaint = ComplaintOf(file);
  EXPECT_TRUE(
      complaint.starts_with("the database is damaged or encrypted: malformed database schema (a)"))
      << complaint;
}

// ---- other programs

TEST_F(DatabaseTest, ADatabaseLockedByAnotherProgramIsComplainedOf) {
  const fs::path file = folder_.Database("create table a (x)");
  Writer other(file);
  other.Run("begin exclusive");
  EXPECT_EQ(ComplaintOf(file), "the database can't be read: another program has locked it");
  other.Run("rollback");
  EXPECT_EQ(ComplaintOf(file), "");
}

// Whether another program would find a lock of this one on the file.
bool IsLockedByThisProgram(const fs::path& file) {
  const pid_t child = fork();
  if (child == 0) {
    struct flock lock {};
    lock.l_type = F_WRLCK;
    const bool asked = fcntl(open(file.c_str(), O_RDWR), F_GETLK, &lock) == 0;
    _exit(asked ? (lock.l_type != F_UNLCK ? 1 : 0) : 2);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) != 2);
  return WEXITSTATUS(status) == 1;
}

TEST_F(DatabaseTest, LocksOfThisProgramOnTheFileStay) {
  const fs::path file = folder_.Database("create table a (x)");
  Writer other(file);
  EXPECT_FALSE(IsLockedByThisProgram(file));
  other.Run("begin immediate; insert into a values (1)");
  EXPECT_TRUE(IsDatabase(file));
  EXPECT_EQ(ComplaintOf(file), "");
  EXPECT_TRUE(IsLockedByThisProgram(file));
}

TEST_F(DatabaseTest, ReadingChangesNoFileAndLeavesNoneBehind) {
  const fs::path file = folder_.Database("create table a (x); insert into a values (1)");
  const auto before = folder_.Files();
  EXPECT_EQ(TableNames(ReadDatabase(file)), Texts{"a"});
  EXPECT_TRUE(folder_.Files() == before);
}

TEST_F(DatabaseTest, ReadingADatabaseWithALogLeavesNoFileBehind) {
  const fs::path file = folder_.Database("pragma journal_mode = wal; create table a (x)");
  const auto before = folder_.Files();
  ASSERT_EQ(before.size(), 1U);
  EXPECT_EQ(TableNames(ReadDatabase(file)), Texts{"a"});
  EXPECT_TRUE(folder_.Files() == before);
}

TEST_F(DatabaseTest, TablesThatStandInTheLogOfAnotherProgramAreRead) {
  const fs::path file = folder_.Path("Orders.db");
  Writer other(file);
  other.Run("pragma journal_mode = wal; create table a (x)");
  EXPECT_EQ(TableNames(ReadDatabase(file)), Texts{"a"});
  other.Run("create table b (x)");
  EXPECT_EQ(TableNames(ReadDatabase(file)), (Texts{"a", "b"}));
  other.Run("begin immediate; create table c (x)");
  EXPECT_EQ(TableNames(ReadDatabase(file)), (Texts{"a", "b"}));
}

TEST_F(DatabaseTest, ALogWithoutItsProgramIsComplainedOf) {
  const fs::path file = folder_.Path("Orders.db");
  const fs::path copy = folder_.Path("copy.db");
  Writer other(file);
  other.Run("pragma journal_mode = wal; create table a (x)");
  fs::copy_file(file, copy);
  fs::copy_file(file.string() + "-wal", copy.string() + "-wal");
  const auto before = folder_.Files();
  EXPECT_EQ(ComplaintOf(copy),
            "the database can't be read: changes in it wait to be finished; open it once with the "
            "program that it belongs to");
  EXPECT_TRUE(folder_.Files() == before);
}

TEST_F(DatabaseTest, ADatabaseOfAnInterruptedProgramIsComplainedOf) {
  // With a cache of one page, pages are written, and their old state kept aside, before the end.
  const fs::path file = folder_.Database("create table a (x); insert into a values (1)");
  const fs::path copy = folder_.Path("copy.db");
  Writer other(file);
  other.Run(
      "pragma cache_size = 1; begin; with recursive n(i) as (values (1) union all"
      " select i + 1 from n where i < 200) insert into a select randomblob(1000) from n;");
  fs::copy_file(file, copy);
  fs::copy_file(file.string() + "-journal", copy.string() + "-journal");
  const auto before = folder_.Files();
  EXPECT_EQ(ComplaintOf(copy),
            "the database can't be read: changes in it wait to be finished; open it once with the "
            "program that it belongs to");
  EXPECT_TRUE(folder_.Files() == before);
}

// ---- large schemas

TEST_F(DatabaseTest, EveryColumnOfALargeSchemaIsTold) {
  std::string columns = "c1 int";
  for (int i = 2; i <= 50; ++i)
    columns += ", c" + std::to_string(i) + " int";
  std::string sql = "begin;";
  for (int i = 1; i <= 500; ++i)
    sql += "create table measurements_" + std::to_string(i) + " (" + columns + ");";
  const DatabaseCatalogue result = Read(sql + "commit;");
  ASSERT_EQ(result.catalogue.tables.size(), 500U);
  for (const Table& table : result.catalogue.tables)
    EXPECT_EQ(table.fields.size(), 50U) << Narrow(table.name);
  EXPECT_EQ(Narrow(result.catalogue.tables.back().code), "measu499");
}

// ---- in a control

class DatabaseInControlTest : public ControlTest {
 protected:
  const Folder folder_;
};

TEST_F(DatabaseInControlTest, MarkingEachTableShowsItsFieldsAndIndexes) {
  const DatabaseCatalogue result = ReadDatabase(folder_.Database(
      "create table customers (id integer primary key, \"full name\" varchar(40), since date);"
      "create table customers_old (id int unique, \"a,b\" int, price numeric(12,2));"
      "create table \"größe, 😀\" (\"länge\" real);"
      "create view open_customers as select \"full name\", since from customers;"));
  Catalogue(Narrow(TableList(result.catalogue)), Narrow(FieldList(result.catalogue)));
  EXPECT_EQ(Rows("lsttables"), (Texts{"customer", "custome1", "größe___", "open_cus"}));

  Mark("lsttables", 0);
  EXPECT_EQ(Rows("lstFields"),
            (Texts{"customer.*", "customer.id", "customer.full name", "customer.since"}));
  EXPECT_EQ(Rows("lstorderbyasc"), Texts{});
  Mark("lsttables", 0);

  Mark("lsttables", 1);
  EXPECT_EQ(Rows("lstFields"), (Texts{"custome1.*", "custome1.id", "custome1.price"}));
  EXPECT_EQ(Rows("lstorderbyasc"), Texts{"custome1._index1"});
  Mark("lsttables", 1);

  Mark("lsttables", 2);
  EXPECT_EQ(Rows("lstFields"), (Texts{"größe___.*", "größe___.länge"}));
  Mark("lsttables", 2);

  Mark("lsttables", 3);
  EXPECT_EQ(Rows("lstFields"), (Texts{"open_cus.*", "open_cus.full name", "open_cus.since"}));
}

}  // namespace
}  // namespace zolt20::tests
