#pragma once

#include "export/CExportBuilderDelegation.h"
#include "export/IOutputState.h"

#include <QtCore/QBuffer>
#include <QtCore/QString>

namespace ZYN {

class CReportBuilderHTML;

/// The PDF report: the HTML report, collected in memory, laid out by `QTextDocument` and printed when
/// the document is closed.
///
/// Needs a `QGuiApplication`; without one, says so in the log and makes no file. The whole report is
/// held in memory twice. Of what the HTML names, only the report logo is loaded. Texts are taken for HTML: a
/// report in which they make a page that takes too long to lay out is refused (see `OutputError`).
class CReportBuilderPDF : public CExportBuilderDelegation, public IOutputState {
public:
    CReportBuilderPDF();
    ~CReportBuilderPDF() override;

    /// Also remembers the logo, the one file that the document may load.
    void SetProperty(const QString& key, const QString& value) override;
    /// Ignored: the HTML always goes to memory.
    void SetDevice(QIODevice* device) override;
    /// Only takes the name; the file is made by `Close`.
    bool OpenFile(const QString& fileName) override;
    bool Close() override;
    bool OutputComplete() const override;
    /// Why no file was made; empty when one was, complete or not.
    QString OutputError() const override;

private:
    bool Print();
    bool IsWholePdf() const;

    CReportBuilderHTML* m_html;
    QBuffer m_buffer;
    QString m_outputFileName;
    QString m_refusal;
    QString m_logo;
    bool m_complete = false;
};

} // namespace ZYN
