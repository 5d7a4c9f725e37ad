#pragma once

#include "judgement/Judgement.h"

/// A judgement as SQL that SQLite, DuckDB and PostgreSQL understand, for a table that has the columns of the
/// CSV file as numbers, NULL where there is none. The judgement must be one that has a table.
namespace JudgementSql {

/// A query for every row with its result, OK or not OK, and for each condition the outcome: in, out or no
/// value.
QString rows(const Judgement& judgement, const QString& table);

/// A query for the totals in one row.
QString totals(const Judgement& judgement, const QString& table);

} // namespace JudgementSql
