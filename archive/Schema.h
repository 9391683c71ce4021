#pragma once

#include "archive/Database.h"

namespace ZYN {

/// The tables of an archive, and their version.
class Schema {
public:
    explicit Schema(Database& database)
        : m_database(database)
    {
    }

    /// Makes the tables, in one transaction, where there are none yet.
    bool Make();
    /// Whether these are the tables of an archive of this version; else says what to do.
    bool Check();
    /// Brings the tables to this version, in one transaction.
    bool Upgrade();

private:
    bool MakeTables();
    bool MakeViews();
    bool IsServerReady();
    bool IsArchive();
    bool OnlyAsks();
    bool ReadVersion(int* version);
    bool Refuse(const QString& text);

    Database& m_database;
};

} // namespace ZYN
