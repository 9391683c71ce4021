#pragma once

#include "archive/questions/ChosenRuns.h"
#include "archive/questions/Programs.h"

#include <map>
#include <set>

namespace ZYN {

/// The group of a row: its program where the chosen runs are of several, and the texts of what was grouped
/// by.
AnswerGroup GroupOf(const Programs& programs, const std::vector<GroupBy>& by, const QString& program,
                    const std::vector<QString>& texts);

/// What the lots of the chosen runs call their bins, for an answer that is grouped by them.
class BinNames {
public:
    /// \return false where the archive has no answer
    bool Read(const Archive& archive, const ChosenRuns& runs, const Programs& programs,
              const std::vector<GroupBy>& by);

    /// Puts the names behind the bins, in all rows or, where no bin of them has a name, in none. Lots that
    /// name one differently make several names, " / " between them.
    template <typename Row>
    void PutInto(std::vector<Row>* rows) const
    {
        if (m_names.empty())
            return;
        for (Row& row : *rows)
            PutInto(&row.group);
    }

private:
    void PutInto(AnswerGroup* group) const;

    std::map<AnswerGroup, std::set<QString>> m_names;
};

} // namespace ZYN
