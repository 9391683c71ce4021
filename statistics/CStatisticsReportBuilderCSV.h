#pragma once

#include "report/CReportBuilderStream.h"

#include <QtCore/QList>

namespace ZYN {

class StatisticsData;

/// Writes a statistics report as a table, one column per entry: twelve rows of figures, then one row
/// per value. UTF-8, line feeds, cells separated by ';', nothing quoted but the ident. Units as the
/// model's texts give them. Session, product type, unit and program are left out.
///
/// The table is written by `Close`. Entries are borrowed and kept beyond it: a further export writes
/// those of all exports, so they must live as long as the builder exports.
class CStatisticsReportBuilderCSV : public CReportBuilderStream {
public:
    bool Close() override;
    bool BeginStatisticsData(StatisticsData* data) override;

private:
    void WriteTable();
    void WriteValueRow(int index);

    QList<StatisticsData*> m_entries;
};

} // namespace ZYN
