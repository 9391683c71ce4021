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
        : m_logo(logoPath)
    {
    }

protected:
    QVariant loadResource(int type, const QUrl& name) override
    {
        if (type != QTextDocument::ImageResource)
            return QByteArray();
        if (!m_logo.isEmpty() && IsLogo(name) && QFileInfo(m_logo).isFile()) {
            if (QImage picture(m_logo); !picture.isNull())
                return picture;
        }
        // A null picture would make the layout look for the file on its own.
        QImage blank(1, 1, QImage::Format_ARGB32);
        blank.fill(Qt::transparent);
        return blank;
    }

private:
    bool IsLogo(const QUrl& name) const
    {
        return name == QUrl(m_logo) || name == QUrl::fromLocalFile(m_logo);
    }

    const QString m_logo;
};

} // namespace

CReportBuilderPDF::CReportBuilderPDF()
    : CExportBuilderDelegation(new CReportBuilderHTML)
    , m_html(static_cast<CReportBuilderHTML*>(m_target))
{
    m_html->SetDevice(&m_buffer);
}

CReportBuilderPDF::~CReportBuilderPDF()
{
    // The buffer goes before the HTML builder does.
    m_html->SetDevice(nullptr);
}

void CReportBuilderPDF::SetProperty(const QString& key, const QString& value)
{
    if (m_logo.isEmpty() && key == QLatin1String("ReportLogo"))
        m_logo = value;
    CExportBuilderDelegation::SetProperty(key, value);
}

void CReportBuilderPDF::SetDevice(QIODevice*)
{
}

bool CReportBuilderPDF::OpenFile(const QString& fileName)
{
    m_outputFileName = fileName;
    m_complete = false;
    m_refusal.clear();
    // Each document starts with an empty buffer, also after one that broke off.
    m_html->SetDevice(nullptr);
    m_html->SetOpened(false);
    m_buffer.setData(QByteArray());
    m_html->SetDevice(&m_buffer);
    return true;
}

bool CReportBuilderPDF::Close()
{
    if (!CExportBuilderDelegation::Close())
        return false;
    m_complete = Print() && m_html->OutputComplete() && IsWholePdf();
    return true;
}

bool CReportBuilderPDF::OutputComplete() const
{
    return m_complete;
}

QString CReportBuilderPDF::OutputError() const
{
    return m_refusal;
}

bool CReportBuilderPDF::Print()
{
    if (m_outputFileName.isEmpty())
        return false;
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        qCWarning(logPdf, "A PDF report needs a QGuiApplication for its fonts; no file is made.");
        m_refusal = QObject::tr("A PDF report needs a QGuiApplication for its fonts; no file is made.");
        return false;
    }
    // Qt makes its support of printers at the first use, and two threads at once make it twice.
    static std::mutex onePrinter;
    const std::lock_guard lock(onePrinter);
    // What is printed is read back, and a pipe would wait for another writer.
    if (const QFileInfo output(m_outputFileName); output.exists() && !output.isFile()) {
        qCWarning(logPdf, "Cannot write the PDF report: %ls is no file.", qUtf16Printable(m_outputFileName));
        m_refusal = QObject::tr("%1 is no file.").arg(m_outputFileName);
        return false;
    }
    const QByteArray bytes = m_buffer.data();
    ReportDocument document(m_logo);
    m_refusal = PdfBounds::WhyTooDear(bytes);
    if (m_refusal.isEmpty()) {
        document.setHtml(Qt::codecForHtml(bytes)->toUnicode(bytes));
        m_refusal = PdfBounds::WhyTooDear(document);
    }
    if (!m_refusal.isEmpty())
        return false;
    // Emptied first: what stands there afterwards is then the printer's.
    if (QFile file(m_outputFileName); !file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        qCWarning(logPdf, "Cannot write the PDF report: %ls", qUtf16Printable(file.errorString()));
        m_refusal = file.errorString();
        return false;
    }

    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(m_outputFileName);

    document.print(&printer);
    return true;
}

bool CReportBuilderPDF::IsWholePdf() const
{
    QFile file(m_outputFileName);
    if (!file.open(QIODevice::ReadOnly) || file.read(5) != "%PDF-")
        return false;
    // The printer's last bytes; its state does not tell of a disk that became full.
    const QByteArray tail = "%%EOF\n";
    return file.seek(qMax(qint64(0), file.size() - tail.size())) && file.readAll() == tail;
}

} // namespace ZYN
