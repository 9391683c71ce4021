// PDF with the printer's default page and margins. The layout is what Qt's rich text makes of the HTML
// report; see there for columns, units and what is left out.

#include "CReportBuilderPDF.h"

#include "CReportBuilderHTML.h"
#include "PdfBounds.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLoggingCategory>
#include <QtCore5Compat/QTextCodec>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QTextDocument>
#include <QtPrintSupport/QPrinter>

#include <mutex>

namespace ZYN {

namespace {

Q_LOGGING_CATEGORY(logPdf, "zyn.report.pdf")

/// A document that loads one picture and nothing else: measured texts reach the HTML unescaped, and an
/// `<img>` in a name must not make this process read a file, a device or a pipe.
class ReportDocument : public QTextDocument {
public:
    explicit ReportDocument(const QString& logoPath)
        : logo(logoPath)
    {
    }

protected:
    QVariant loadResource(int type, const QUrl& name) override
    {
        if (type != QTextDocument::ImageResource)
            return QByteArray();
        if (!logo.isEmpty() && IsLogo(name) && QFileInfo(logo).isFile()) {
            if (QImage picture(logo); !picture.isNull())
                return picture;
        }
        // A null picture would make the layout look for the file on its own.
        QImage blank(1, 1, QImage::Format_ARGB32);
        blank.fill(Qt::transparent);
        return blank;
    }

private:
    bool IsLogo(const QUrl& name) const { return name == QUrl(logo) || name == QUrl::fromLocalFile(logo); }

    const QString logo;
};

} // namespace

CReportBuilderPDF::CReportBuilderPDF()
    : CExportBuilderDelegation(new CReportBuilderHTML)
    , html(static_cast<CReportBuilderHTML*>(target))
{
    html->SetDevice(&buffer);
}

CReportBuilderPDF::~CReportBuilderPDF()
{
    // The buffer goes before the HTML builder does.
    html->SetDevice(nullptr);
}

void CReportBuilderPDF::SetProperty(const QString& key, const QString& value)
{
    if (logo.isEmpty() && key == QLatin1String("ReportLogo"))
        logo = value;
    CExportBuilderDelegation::SetProperty(key, value);
}

void CReportBuilderPDF::SetDevice(QIODevice*)
{
}

bool CReportBuilderPDF::OpenFile(const QString& fileName)
{
    outputFileName = fileName;
    complete = false;
    refusal.clear();
    // Each document starts with an empty buffer, also after one that broke off.
    html->SetDevice(nullptr);
    html->SetOpened(false);
    buffer.setData(QByteArray());
    html->SetDevice(&buffer);
    return true;
}

bool CReportBuilderPDF::Close()
{
    if (!CExportBuilderDelegation::Close())
        return false;
    complete = Print() && html->OutputComplete() && IsWholePdf();
    return true;
}

bool CReportBuilderPDF::OutputComplete() const
{
    return complete;
}

QString CReportBuilderPDF::OutputError() const
{
    return refusal;
}

bool CReportBuilderPDF::Print()
{
    if (outputFileName.isEmpty())
        return false;
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        qCWarning(logPdf, "A PDF report needs a QGuiApplication for its fonts; no file is made.");
        refusal = QObject::tr("A PDF report needs a QGuiApplication for its fonts; no file is made.");
        return false;
    }
    // Qt makes its support of printers at the first use, and two threads at once make it twice.
    static std::mutex onePrinter;
    const std::lock_guard lock(onePrinter);
    // What is printed is read back, and a pipe would wait for another writer.
    if (const QFileInfo output(outputFileName); output.exists() && !output.isFile()) {
        qCWarning(logPdf, "Cannot write the PDF report: %ls is no file.", qUtf16Printable(outputFileName));
        refusal = QObject::tr("%1 is no file.").arg(outputFileName);
        return false;
    }
    const QByteArray bytes = buffer.data();
    ReportDocument document(logo);
    refusal = PdfBounds::WhyTooDear(bytes);
    if (refusal.isEmpty()) {
        document.setHtml(Qt::codecForHtml(bytes)->toUnicode(bytes));
        refusal = PdfBounds::WhyTooDear(document);
    }
    if (!refusal.isEmpty())
        return false;
    // Emptied first: what stands there afterwards is then the printer's.
    if (QFile file(outputFileName); !file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        qCWarning(logPdf, "Cannot write the PDF report: %ls", qUtf16Printable(file.errorString()));
        refusal = file.errorString();
        return false;
    }

    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(outputFileName);

    document.print(&printer);
    return true;
}

bool CReportBuilderPDF::IsWholePdf() const
{
    QFile file(outputFileName);
    if (!file.open(QIODevice::ReadOnly) || file.read(5) != "%PDF-")
        return false;
    // The printer's last bytes; its state does not tell of a disk that became full.
    const QByteArray tail = "%%EOF\n";
    return file.seek(qMax(qint64(0), file.size() - tail.size())) && file.readAll() == tail;
}

} // namespace ZYN
