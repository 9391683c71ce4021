#include "page/LotPage.h"

#include "page/Html.h"
#include "page/LotAnswers.h"
#include "page/LotSections.h"
#include "page/PageStyle.h"
#include "page/PageTexts.h"

#include <QtCore/QDateTime>
#include <QtCore/QIODevice>
#include <QtCore/QLocale>

namespace ZYN::Page {

namespace {

QString ValueOf(const YieldRow& row, const QString& key)
{
    for (const auto& [name, value] : row.group)
        if (name == key)
            return value;
    return {};
}

struct Lot {
    QString product, lot;
    bool operator==(const Lot&) const = default;
};

// The lots that the chosen runs are of, each once: one of several programs has a row for each.
std::vector<Lot> LotsOf(const std::vector<YieldRow>& rows)
{
    std::vector<Lot> lots;
    for (const YieldRow& row : rows) {
        const Lot lot{ValueOf(row, QStringLiteral("product")), ValueOf(row, QStringLiteral("lot"))};
        if (std::find(lots.begin(), lots.end(), lot) == lots.end())
            lots.push_back(lot);
    }
    return lots;
}

QString Head(const QString& title)
{
    return QStringLiteral(
               "<!DOCTYPE html>\n<html lang=\"%1\">\n<head>\n<meta charset=\"utf-8\">\n"
               "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src "
               "'unsafe-inline'\">\n"
               "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
               "<title>%2</title>\n<style>%3</style>\n</head>\n<body>\n")
        .arg(Texts::tr("en", "language of the page"), Escaped(title), StyleSheet());
}

QString TitleOf(const std::vector<Lot>& lots)
{
    if (lots.size() != 1)
        return Texts::tr("%n lots", nullptr, int(lots.size()));
    const Lot& lot = lots.front();
    return lot.lot.isEmpty() ? lot.product : Texts::tr("Lot %1 · %2").arg(lot.lot, lot.product);
}

QString Inputs(const Subject& subject)
{
    QStringList inputs;
    for (const QString& input : subject.inputs)
        inputs.append(Escaped(input));
    return QStringLiteral("<p class=\"source\">%1</p>\n")
        .arg(Texts::tr("Made from %1").arg(inputs.join(QStringLiteral(", "))));
}

bool Write(QIODevice& device, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    return device.write(bytes) == bytes.size();
}

} // namespace

bool WriteLotPage(const Archive& archive, const Subject& subject, QIODevice& device)
{
    const auto rows = AskYield(archive, subject.filter, {GroupBy::Product, GroupBy::Lot});
    if (!rows)
        return false;
    const std::vector<Lot> lots = LotsOf(*rows);
    const QString title = TitleOf(lots);
    if (!Write(device, Head(title) + QStringLiteral("<header>\n<h1>%1</h1>\n").arg(Escaped(title)) +
                           Inputs(subject) + QStringLiteral("</header>\n<main>\n")))
        return false;
    int number = 0;
    for (const Lot& lot : lots) {
        const std::optional<LotAnswers> answers = AskLot(archive, subject.filter, lot.product, lot.lot);
        if (!answers || !Write(device, LotSection(*answers, ++number, lots.size() > 1)))
            return false;
    }
    return Write(device, QStringLiteral("</main>\n</body>\n</html>\n"));
}

} // namespace ZYN::Page
