#include "page/LotPage.h"

#include "page/Html.h"
#include "page/LotPictures.h"
#include "page/LotSections.h"
#include "page/PageStyle.h"
#include "page/PageTexts.h"
#include "page/Part.h"

#include <QtCore/QIODevice>

namespace ZYN::Page {

namespace {

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

QString Inputs(const Subject& subject)
{
    QStringList inputs;
    for (const QString& input : subject.inputs)
        inputs.append(Escaped(input));
    return QStringLiteral("<p class=\"source\">%1</p>\n")
        .arg(Texts::tr("Made from %1").arg(inputs.join(QStringLiteral(", "))));
}

// Links to the parts of several lots.
QString Contents(const std::vector<LotName>& lots)
{
    if (lots.size() < 2)
        return {};
    QString text = QStringLiteral("<nav aria-label=\"%1\"><ul class=\"facts\">\n").arg(Texts::tr("Lots"));
    for (int number = 0; const LotName& lot : lots)
        text += QStringLiteral("<li><a href=\"#lot%1\">%2</a></li>\n")
                    .arg(QString::number(++number), Escaped(TitleOf({lot})));
    return text + QStringLiteral("</ul></nav>\n");
}

bool Write(QIODevice& device, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    return device.write(bytes) == bytes.size();
}

} // namespace

bool WriteLotPage(const Archive& archive, const Subject& subject, QIODevice& device)
{
    const QString title = TitleOf(subject.lots);
    if (!Write(device, Head(title) + QStringLiteral("<header>\n<h1>%1</h1>\n").arg(Escaped(title)) +
                           Inputs(subject) + Contents(subject.lots) + QStringLiteral("</header>\n<main>\n")))
        return false;
    int number = 0;
    for (const LotName& lot : subject.lots) {
        const std::optional<LotAnswers> answers = AskLot(archive, subject.filter, lot);
        if (!answers || !WriteLotSection(device, *answers, {++number, subject.lots.size() > 1}))
            return false;
    }
    return Write(device, QStringLiteral("</main>\n</body>\n</html>\n"));
}

} // namespace ZYN::Page
