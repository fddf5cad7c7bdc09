#include "hosts/composer/server_tables.h"

#include <QCoreApplication>
#include <QMap>
#include <QSet>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlField>
#include <QSqlIndex>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>
#include <algorithm>
#include <utility>

#include "faces/qt/qt_text.h"
#include "hosts/composer/server_address.h"
#include "hosts/composer/server_questions.h"
#include "hosts/kit/found_tables.h"
#include "hosts/kit/functions.h"
#include "hosts/kit/table_codes.h"
#include "hosts/kit/type_words.h"

namespace zolt20::composer {
namespace {

using catalogue::DatabaseCatalogue;
using catalogue::FoundColumn;
using catalogue::FoundTable;
using qt::FromQt;
using qt::View;

constexpr int kRowsInAPiece = 500;

constexpr qsizetype kLongestMessage = 600;

// Throws with the server's message, without the line breaks and tabs that drivers put into it.
[[noreturn]] void Complain(const QSqlError& error) {
  const QString said = error.databaseText().trimmed();
  QStringList lines;
  for (const QString& line : (said.isEmpty() ? error.driverText() : said).split(u'\n')) {
    if (!line.trimmed().isEmpty()) lines.append(line.simplified());
  }
  throw ServerError(lines.join(u'\n').left(kLongestMessage).toStdString());
}

// Runs a statement. Returns false when the server rejects it, as a server of another kind does.
bool Try(const QSqlDatabase& connection, const char* sql) {
  return QSqlQuery(connection).exec(QString::fromLatin1(sql));
}

// The single value that a query returns; "" when the server rejects the query.
QString Answer(const QSqlDatabase& connection, const char* sql) {
  QSqlQuery query(connection);
  return query.exec(QString::fromLatin1(sql)) && query.next() ? query.value(0).toString()
                                                              : QString();
}

// A value for the ODBC connection string that Qt builds, where ";" ends a value.
QString OdbcValue(const QString& value) {
  const bool isPlain = std::none_of(value.begin(), value.end(), [](QChar character) {
    return QStringLiteral("[]{}(),;?*=!@").contains(character);
  });
  if (isPlain) return value;
  return u'{' + QString(value).replace(u'}', QStringLiteral("}}")) + u'}';
}

Dialect FindDialect(const QSqlDatabase& connection) {
  if (connection.driverName() == u"QPSQL") return Dialect::kPostgreSql;
  if (connection.driverName() == u"QMYSQL") return Dialect::kMariaDb;
  if (connection.driver()->dbmsType() == QSqlDriver::MySqlServer) return Dialect::kMariaDb;
  const QString version = Answer(connection, "select version()");
  if (version.startsWith(u"PostgreSQL")) return Dialect::kPostgreSql;
  if (version.contains(u"MariaDB")) return Dialect::kMariaDb;
  const bool isSqlite = !Answer(connection, "select sqlite_version()").isEmpty();
  return isSqlite ? Dialect::kSqlite : Dialect::kOther;
}

// A string literal in the given dialect. Bound values are not used, because MariaDB's ODBC driver
// finds nothing with them.
QString Literal(const QString& text, Dialect dialect) {
  QString literal = text;
  if (dialect == Dialect::kMariaDb) literal.replace(u'\\', QStringLiteral("\\\\"));
  return u'\'' + literal.replace(u'\'', QStringLiteral("''")) + u'\'';
}

// Runs a query that is restricted to these schemas.
QSqlQuery Ask(const QSqlDatabase& connection, const char* question, Dialect dialect,
              const QStringList& schemas) {
  QStringList literals;
  for (const QString& schema : schemas)
    literals.append(Literal(schema, dialect));
  QSqlQuery query(connection);
  query.setForwardOnly(true);
  const QString text =
      QString::fromLatin1(question).replace(QStringLiteral("%1"), literals.join(u", "));
  if (!query.exec(text)) Complain(query.lastError());
  return query;
}

bool Next(QSqlQuery& query) {
  if (query.next()) return true;
  if (query.lastError().isValid()) Complain(query.lastError());
  return false;
}

using TableName = std::pair<QString, QString>;  // schema and table

TableName NameIn(const QSqlQuery& row) {
  return {row.value(0).toString(), row.value(1).toString()};
}

struct Tables {
  std::vector<std::pair<TableName, std::string>> inOrder;  // with their kinds
  QMap<TableName, std::vector<FoundColumn>> columns;
  QMap<TableName, qint64> indexes;
};

// ---- servers that are asked in their own words

Tables AskForTables(const QSqlDatabase& connection, Dialect dialect, const QStringList& schemas,
                    const Progress& progress) {
  const Questions& questions = QuestionsFor(dialect);
  const auto word =
      dialect == Dialect::kSqlite ? catalogue::TypeWordByAffinity : catalogue::TypeWordByName;
  const auto ask = [&](const char* question) {
    return Ask(connection, question, dialect, schemas);
  };
  Tables found;
  int rows = 0;
  const auto count = [&] {
    if (++rows % kRowsInAPiece == 0) progress();
  };
  for (QSqlQuery row = ask(questions.tables); Next(row); count())
    found.inOrder.emplace_back(NameIn(row), row.value(2).toString().toStdString());
  progress();
  for (QSqlQuery row = ask(questions.columns); Next(row); count()) {
    found.columns[NameIn(row)].push_back({{FromQt(row.value(2).toString())},
                                          {FromQt(row.value(3).toString())},
                                          word(View(row.value(4).toString()))});
  }
  progress();
  for (QSqlQuery row = ask(questions.indexes); Next(row); count())
    found.indexes[NameIn(row)] = row.value(2).toLongLong();
  progress();
  return found;
}

// ---- any other source of ODBC

// The SQL name of a type, which ODBC gives as a number.
QString TypeName(const QSqlField& field) {
  static const QMap<int, QString> kNames{
      {1, QStringLiteral("char")},       {2, QStringLiteral("numeric")},
      {3, QStringLiteral("decimal")},    {4, QStringLiteral("integer")},
      {5, QStringLiteral("smallint")},   {6, QStringLiteral("float")},
      {7, QStringLiteral("real")},       {8, QStringLiteral("double")},
      {9, QStringLiteral("date")},       {10, QStringLiteral("time")},
      {11, QStringLiteral("timestamp")}, {12, QStringLiteral("varchar")},
      {91, QStringLiteral("date")},      {92, QStringLiteral("time")},
      {93, QStringLiteral("timestamp")}, {-1, QStringLiteral("text")},
      {-2, QStringLiteral("binary")},    {-3, QStringLiteral("varbinary")},
      {-4, QStringLiteral("blob")},      {-5, QStringLiteral("bigint")},
      {-6, QStringLiteral("tinyint")},   {-7, QStringLiteral("boolean")},
      {-8, QStringLiteral("nchar")},     {-9, QStringLiteral("nvarchar")},
      {-10, QStringLiteral("text")},
  };
  return kNames.value(field.typeID(), QStringLiteral("other"));
}

bool HasLength(const QString& type) {
  return type.endsWith(u"char") || type.endsWith(u"binary") || type == u"decimal" ||
         type == u"numeric";
}

FoundColumn ColumnOf(const QSqlField& field) {
  QString type = TypeName(field);
  const catalogue::StoredText name{FromQt(field.name())};
  const StringView word = catalogue::TypeWordByName(View(type));
  if (HasLength(type) && field.length() > 0) {
    const QString digits = word == u"decimal" && field.precision() > 0
                               ? QStringLiteral(",%1").arg(field.precision())
                               : QString();
    type += QStringLiteral("(%1%2)").arg(field.length()).arg(digits);
  }
  return {name, {FromQt(type)}, word};
}

Tables AskQtForTables(const QSqlDatabase& connection, const Progress& progress) {
  Tables found;
  const auto take = [&](QSql::TableType type, const char* kind) {
    QStringList names = connection.tables(type);
    names.sort();
    for (const QString& name : names) {
      const TableName table{{}, name};
      found.inOrder.emplace_back(table, kind);
      const QSqlRecord record = connection.record(name);
      for (int column = 0; column < record.count(); ++column)
        found.columns[table].push_back(ColumnOf(record.field(column)));
      found.indexes[table] = connection.primaryIndex(name).isEmpty() ? 0 : 1;
      progress();
    }
  };
  take(QSql::Tables, "table");
  take(QSql::Views, "view");
  return found;
}

// Table names that exist in several schemas.
QSet<QString> Ambiguous(const Tables& found) {
  QSet<QString> once;
  QSet<QString> ambiguous;
  for (const auto& [table, kind] : found.inOrder) {
    if (once.contains(table.second)) ambiguous.insert(table.second);
    once.insert(table.second);
  }
  return ambiguous;
}

}  // namespace

Dialect OpenSession(QSqlDatabase& connection, const QString& user, const QString& password) {
  const bool isOdbc = connection.driverName() == u"QODBC";
  if (!connection.open(isOdbc ? OdbcValue(user) : user, isOdbc ? OdbcValue(password) : password))
    Complain(connection.lastError());
  const Dialect dialect = FindDialect(connection);
  if (dialect == Dialect::kPostgreSql) {
    if (!Try(connection, "set session characteristics as transaction read only"))
      throw ServerError(
          QCoreApplication::translate("composer", "The session can't be made one that only reads.")
              .toStdString());
    Try(connection, "set statement_timeout = 7000");
    Try(connection, "set standard_conforming_strings = on");
  } else if (dialect == Dialect::kMariaDb) {
    if (!Try(connection, "set session transaction read only"))
      throw ServerError(
          QCoreApplication::translate("composer", "The session can't be made one that only reads.")
              .toStdString());
    Try(connection, "set session max_statement_time = 7");
  }
  return dialect;
}

std::vector<Schema> ReadSchemas(QSqlDatabase& connection, Dialect dialect) {
  if (dialect == Dialect::kOther) {
    const auto count =
        connection.tables(QSql::Tables).size() + connection.tables(QSql::Views).size();
    return {{{}, static_cast<int>(count)}};
  }
  std::vector<Schema> schemas;
  for (QSqlQuery row = Ask(connection, QuestionsFor(dialect).schemas, dialect, {}); Next(row);)
    schemas.push_back({row.value(0).toString(), row.value(1).toInt()});
  return schemas;
}

DatabaseCatalogue ReadServerTables(QSqlDatabase& connection, Dialect dialect,
                                   const QStringList& schemas, const Progress& progress) {
  const Tables found = dialect == Dialect::kOther
                           ? AskQtForTables(connection, progress)
                           : AskForTables(connection, dialect, schemas, progress);
  const QSet<QString> ambiguous = Ambiguous(found);
  DatabaseCatalogue result;
  for (const auto& [table, kind] : found.inOrder) {
    const bool isAmbiguous = ambiguous.contains(table.second);
    FoundTable each;
    each.kind = kind;
    each.name = {FromQt(isAmbiguous ? table.first + u'.' + table.second : table.second)};
    each.indexes = found.indexes.value(table);
    each.columns = found.columns.value(table);
    AddTable(result, each);
  }
  GiveCodes(result.catalogue.tables);
  result.catalogue.functions =
      dialect == Dialect::kSqlite ? catalogue::SqliteFunctions() : catalogue::StandardFunctions();
  return result;
}

}  // namespace zolt20::composer
