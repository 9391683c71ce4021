// Binning definitions, and the INI reader under them.

#include "FuzzSupport.h"

#include <ZYNIni/IniReader.h>
#include <ZYNPersistence/BinningReader.h>

#include <QtCore/QBuffer>
#include <QtCore/QSet>

using namespace ZYN;
using namespace ZYN::Fuzz;

namespace {

void ReadIni(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    IniReader reader(&buffer);
    const bool good = reader.read();
    Require(good == reader.getErrorText().isEmpty(), "a fault has a text", reader.getErrorText());
    Require(good == (reader.getErrorLine() == 0), "a fault has a line");
    Require(good || reader.getAllSections().isEmpty(), "there is no partial result");
    int line = 0;
    for (const IniSection& section : reader.getAllSections()) {
        Require(section.getLine() > line && !section.getName().isEmpty(), "sections stand in file order");
        line = section.getLine();
    }
}

Binning ReadBinning(const QByteArray& bytes)
{
    static MemoryFile file;
    file.Set(bytes);
    QString errorText;
    const Binning binning = BinningReader::read(file.Name(), errorText);
    Require(binning.valid == errorText.isNull(), "there is a definition or an error text", errorText);
    Require(binning.valid || (binning.bins.isEmpty() && binning.fileName.isEmpty()),
            "there is no partial result");
    return binning;
}

QByteArray WriteBinning(const Binning& binning)
{
    QString ini;
    for (const BinDefinition& bin : binning.bins)
        ini += QStringLiteral("[BIN%1]\n_NAME_=%2\n_TYPE_=%3\n_RESULT_=%4\n")
                   .arg(QString::number(bin.id), bin.name,
                        bin.type == BinType::Hard ? QStringLiteral("HARD") : QStringLiteral("SOFT"),
                        bin.result == BinResult::Pass ? QStringLiteral("PASS") : QStringLiteral("FAIL"));
    return ini.toUtf8();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArray bytes = Input(data, size);
    ReadIni(bytes);
    const Binning binning = ReadBinning(bytes);
    QSet<QString> names;
    for (auto bin = binning.bins.begin(); bin != binning.bins.end(); ++bin) {
        Require(bin.key() == bin->id && bin->id >= 0, "a bin is found under its id");
        Require(!bin->name.isEmpty(), "a bin has a name");
        names.insert(bin->name);
    }
    Require(names.size() == binning.bins.size(), "names are unique");

    const QByteArray written = WriteBinning(binning);
    Require(WriteBinning(ReadBinning(written)) == written, "what was read can be written and read",
            QString::fromUtf8(written));
    return 0;
}
