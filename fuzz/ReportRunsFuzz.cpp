// Runs from the bytes of a report, against those from the model that the import makes of it.

#include "FuzzSupport.h"
#include "ReportGenerations.h"
#include "ReportRunsCheck.h"

#include <QtCore/QList>

#include <cstring>
#include <random>

using namespace ZYN;
using namespace ZYN::Fuzz;

extern "C" std::size_t LLVMFuzzerMutate(unsigned char* data, std::size_t size, std::size_t mostSize);

namespace {

/// Changes whole lines of a report, so that most of what comes out still is one.
QByteArray WithOtherLines(const QByteArray& report, std::mt19937& random)
{
    QList<QByteArray> lines = report.split('\n');
    const auto any = [&] { return qsizetype(random() % std::size_t(lines.size())); };
    const qsizetype line = any();
    switch (random() % 5) {
    case 0:
        lines.removeAt(line);
        break;
    case 1:
        lines.insert(any(), lines[line]);
        break;
    case 2:
        lines.swapItemsAt(line, any());
        break;
    case 3: { // an element with all it holds, once more or gone: up to a line of the same depth
        const auto depth = [](const QByteArray& text) { return text.size() - text.trimmed().size(); };
        qsizetype end = line + 1;
        while (end < lines.size() && depth(lines[end]) > depth(lines[line]))
            ++end;
        const QList<QByteArray> element = lines.mid(line, end - line + 1);
        if (random() % 2)
            lines.remove(line, std::min(element.size(), lines.size() - line));
        else
            for (qsizetype i = 0; i < element.size() && lines.size() < 2000; ++i)
                lines.insert(line + i, element[i]);
        break;
    }
    default: { // the text of a property in another
        const auto text = [](const QByteArray& of) {
            const qsizetype begin = of.indexOf('>') + 1;
            return of.mid(begin, of.lastIndexOf('<') - begin);
        };
        if (const QByteArray old = text(lines[line]); !old.isEmpty())
            lines[line].replace(old, text(lines[any()]));
        break;
    }
    }
    return lines.join('\n');
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(unsigned char* data, std::size_t size, std::size_t mostSize,
                                               unsigned int seed)
{
    std::mt19937 random(seed);
    if (size == 0 || random() % 4 == 0)
        return LLVMFuzzerMutate(data, size, mostSize);
    const QByteArray mutated = WithOtherLines(Input(data, size), random);
    const std::size_t count = std::min(std::size_t(mutated.size()), mostSize);
    std::memcpy(data, mutated.constData(), count);
    return count;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    CheckReportRuns(Input(data, size), false);
    return 0;
}
