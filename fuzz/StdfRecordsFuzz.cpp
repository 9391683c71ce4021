// STDF files of any source: reader, decoder, checker, and what prints records for machines and people.

#include "FuzzSupport.h"

#include "stdf/Checker.h"
#include "stdf/JsonPrinter.h"
#include "stdf/TextPrinter.h"

#include <QtCore/QBuffer>
#include <QtCore/QJsonDocument>

using namespace ZYN;
using namespace ZYN::Fuzz;

namespace {

constexpr qsizetype headerSize = 4;

void RequireJson(const QByteArray& line)
{
    QJsonParseError error;
    QJsonDocument::fromJson(line, &error);
    Require(error.error == QJsonParseError::NoError && !line.contains('\n'), "a record is one line of JSON",
            QString::fromUtf8(line));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    QByteArray bytes = Input(data, size);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    Stdf::Reader reader(&buffer);
    Stdf::Checker checker;
    Stdf::TextPrinter all([](const QString&) {});
    Stdf::TextPrinter failed([](const QString&) {}, true);
    qint64 end = 0;
    for (Stdf::RawRecord raw; reader.Next(raw);) {
        const Stdf::Record record = Stdf::Decode(raw, reader.IsBigEndian());
        Require(raw.offset == end && record.offset == end, "records follow each other");
        Require(!record.type || record.values.size() <= qsizetype(record.type->fields.size()),
                "a record has no more values than fields");
        end += headerSize + raw.body.size();
        RequireJson(Stdf::ToJsonLine(raw, record));
        checker.Take(raw, record);
        all.Take(raw, record);
        failed.Take(raw, record);
    }
    Require(reader.Offset() == end, "the reader knows where it ended");
    if (const auto& fault = reader.GetFault()) {
        Require(!fault->text.isEmpty() && fault->offset <= end, "a fault has a text and a place");
        RequireJson(Stdf::ToJsonLine(*fault));
    } else if (!reader.IsCompressed()) {
        Require(end == qint64(size), "a file without a fault was read to its end");
    }
    checker.Finish(reader);
    all.Finish(reader);
    failed.Finish(reader);
    Require(checker.HasFaults() || !reader.GetFault(), "a fault of the reader is a finding");
    for (const Stdf::Finding& finding : checker.GetFindings())
        Require(!finding.text.isEmpty() && finding.offset >= 0 && finding.offset <= end,
                "a finding has a text and a place");
    return 0;
}
