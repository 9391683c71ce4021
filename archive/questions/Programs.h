#pragma once

#include "archive/Questions.h"

#include <QtCore/QHash>

namespace ZYN {

class ChosenRuns;

/// Names of programs by the layout of a run: comparing numbers is faster than comparing names in every row.
class Programs {
public:
    /// \return false where they cannot be read; the archive then says why
    bool Read(const Archive& archive);
    /// The same, and finds out whether the chosen runs are of several programs.
    bool Read(const Archive& archive, const ChosenRuns& runs);

    QString NameOf(int layout) const { return m_names.value(layout); }
    /// What stands in front of a group: the program, where the chosen runs are of several.
    AnswerGroup GroupOf(const QString& program) const
    {
        return m_areSeveral ? AnswerGroup{{QStringLiteral("program"), program}} : AnswerGroup{};
    }

private:
    QHash<int, QString> m_names;
    bool m_areSeveral = false;
};

} // namespace ZYN
