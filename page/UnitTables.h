#pragma once

#include <QtCore/QSet>
#include <QtCore/QString>

namespace ZYN::Page {

struct LotAnswers;
struct Part;

/// The tables of units of one lot on a page, whose rows can be led to.
class UnitTables {
public:
    UnitTables(const LotAnswers& answers, const Part& part);

    /// The link to a unit's row; empty where it has none.
    QString LinkTo(const QString& serial) const;
    /// The tables.
    QString Html() const;

private:
    const LotAnswers& m_answers;
    const Part& m_part;
    QSet<QString> m_serials; // with a row
};

} // namespace ZYN::Page
