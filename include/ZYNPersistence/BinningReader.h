#pragma once

#include <ZYNPersistence/Binning.h>
#include <ZYNPersistence/ZYNPersistenceGlobal.h>

#include <QtCore/QString>

namespace ZYN {

/// Reads binning definitions (INI). Stateless; any number of threads.
class ZYNPERSISTENCE_EXPORT BinningReader {
public:
    BinningReader();
    BinningReader(const BinningReader& other);
    BinningReader(BinningReader&& other) noexcept;
    ~BinningReader();
    BinningReader& operator=(const BinningReader& other);
    BinningReader& operator=(BinningReader&& other) noexcept;

    ///     QString errorText;
    ///     const Binning binning = BinningReader::read("bins.ini", errorText); // binning.valid tells
    /// \param errorText receives the message of the first fault in file order; untouched on success
    /// \return the definition; not valid after a fault
    static Binning read(const QString& fileName, QString& errorText);
};

} // namespace ZYN
