#pragma once

#include "archive/Database.h"

namespace ZYN {

/// The statements that put a run into an archive; what each expects is where it is run.
struct RunStatements {
    QString findUnit; ///< and, on a server, locks it
    QString insertUnit;
    QString findKnown; ///< id, content, revision and first of all revisions, the current one last
    QString replace;
    QString dropFailures;
    QString findEarliest; ///< current run of a unit and program: id, start, run and test index, first
    QString unmark;
    QString insertRun;
    QString insertValues;
    QString insertFailure;
    QString makeMonth = {}; ///< of a server: tables of the month of a start
};

const RunStatements& StatementsFor(Database::Kind kind);

} // namespace ZYN
