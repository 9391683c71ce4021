#pragma once

#include <QtCore/QSet>
#include <QtCore/QString>

namespace ZYN::Page {

struct LotAnswers;

/// The tables of units of one lot on a page, whose rows can be led to.
class UnitTables {
public:
    /// \param number of the lot on the page
    UnitTables(const LotAnswers& answers, int number);

    /// The link to a unit's row; empty where it has none.
    QString LinkTo(const QString& serial) const;
    /// The tables.
    QString Html() const;

private:
    const LotAnswers& m_answers;
    int m_number;
    QSet<QString> m_serials; // with a row
};

} // namespace ZYN::Page
