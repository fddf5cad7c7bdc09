#include "hosts/composer/server_questions.h"

namespace zolt20::composer {
namespace {

// Tables, partitioned tables without their partitions, views, materialized views and foreign
// tables. A domain has the type word of its base type.
constexpr Questions kPostgreSql{
    "select n.nspname, count(*) from pg_catalog.pg_class c"
    " join pg_catalog.pg_namespace n on n.oid = c.relnamespace"
    " where c.relkind in ('r', 'p', 'v', 'm', 'f') and not c.relispartition"
    " and n.nspname not like 'pg\\_%' and n.nspname <> 'information_schema'"
    " and has_schema_privilege(n.oid, 'usage')"
    " group by n.nspname order by n.nspname",

    "select n.nspname, c.relname,"
    " case when c.relkind in ('v', 'm') then 'view' else 'table' end"
    " from pg_catalog.pg_class c join pg_catalog.pg_namespace n on n.oid = c.relnamespace"
    " where c.relkind in ('r', 'p', 'v', 'm', 'f') and not c.relispartition"
    " and n.nspname in (%1) order by n.nspname, c.relname",

    "select n.nspname, c.relname, a.attname, format_type(a.atttypid, a.atttypmod),"
    " case when t.typtype = 'd' then format_type(t.typbasetype, t.typtypmod)"
    " else format_type(a.atttypid, a.atttypmod) end"
    " from pg_catalog.pg_class c join pg_catalog.pg_namespace n on n.oid = c.relnamespace"
    " join pg_catalog.pg_attribute a on a.attrelid = c.oid"
    " join pg_catalog.pg_type t on t.oid = a.atttypid"
    " where c.relkind in ('r', 'p', 'v', 'm', 'f') and not c.relispartition"
    " and a.attnum > 0 and not a.attisdropped"
    " and n.nspname in (%1) order by n.nspname, c.relname, a.attnum",

    "select n.nspname, c.relname, count(*) from pg_catalog.pg_index i"
    " join pg_catalog.pg_class c on c.oid = i.indrelid"
    " join pg_catalog.pg_namespace n on n.oid = c.relnamespace"
    " where n.nspname in (%1) group by n.nspname, c.relname"};

// MariaDB calls a schema a database.
constexpr Questions kMariaDb{
    "select table_schema, count(*) from information_schema.tables"
    " where table_type in ('BASE TABLE', 'SYSTEM VERSIONED', 'VIEW') and table_schema"
    " not in ('information_schema', 'mysql', 'performance_schema', 'sys')"
    " group by table_schema order by table_schema",

    "select table_schema, table_name,"
    " case when table_type = 'VIEW' then 'view' else 'table' end from information_schema.tables"
    " where table_type in ('BASE TABLE', 'SYSTEM VERSIONED', 'VIEW')"
    " and table_schema in (%1) order by table_schema, table_name",

    "select table_schema, table_name, column_name, column_type, data_type"
    " from information_schema.columns where table_schema in (%1)"
    " order by table_schema, table_name, ordinal_position",

    "select table_schema, table_name, count(distinct index_name)"
    " from information_schema.statistics where table_schema in (%1)"
    " group by table_schema, table_name"};

constexpr Questions kSqlite{
    "select 'main', count(*) from sqlite_master"
    " where type in ('table', 'view') and lower(substr(name, 1, 7)) <> 'sqlite_'",

    "select 'main', name, type from sqlite_master"
    " where type in ('table', 'view') and lower(substr(name, 1, 7)) <> 'sqlite_'"
    " and 'main' in (%1) order by name",

    "select 'main', m.name, c.name, c.type, c.type"
    " from sqlite_master m join pragma_table_xinfo(m.name) c"
    " where m.type in ('table', 'view') and c.hidden <> 1 and 'main' in (%1)"
    " order by m.name, c.cid",

    "select 'main', m.name, count(*) from sqlite_master m join pragma_index_list(m.name) i"
    " where m.type = 'table' and 'main' in (%1) group by m.name"};

}  // namespace

const Questions& QuestionsFor(Dialect dialect) {
  if (dialect == Dialect::kPostgreSql) return kPostgreSql;
  return dialect == Dialect::kMariaDb ? kMariaDb : kSqlite;
}

}  // namespace zolt20::composer
