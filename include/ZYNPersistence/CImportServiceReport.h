#pragma once

#include <ZYNPersistence/ZYNPersistenceGlobal.h>

#include <QtCore/QList>
#include <QtCore/QString>

namespace ZYN {

class CImportServiceReport_Private;
class UUTTest;

/// Something that was wrong with a document, or good and yet lost by reading it.
struct ImportFinding {
    qint64 line = 0;   ///< from 1; 0 when it concerns the whole file
    qint64 column = 0; ///< from 1; 0 when it concerns the whole line
    QString text;
    /// False for what a good report says and the model cannot take over, such as an ident that is no number.
    bool isError = true;
};

/// Reads an XML report back into the test of a unit.
///
/// What a report does not carry, or carries and is not read back, is listed in `docs/formats.md`. One
/// service may import several files, one after the other; some of its parse state is carried over (the
/// scale, the last product type, being inside panel items). Use one service a file where that matters.
/// One service is used by one thread at a time; separate services may run in separate threads.
class ZYNPERSISTENCE_EXPORT CImportServiceReport {
public:
    CImportServiceReport();
    /// Copies the settings (format, file name), not the parse state.
    CImportServiceReport(const CImportServiceReport& other);
    CImportServiceReport& operator=(const CImportServiceReport&) = delete;
    ~CImportServiceReport();

    /// Any format that the registry knows is accepted; `Import` reads XML in every case.
    bool SetFormat(const QString& format);
    bool FormatOk() const;
    void SetInputFileName(const QString& fileName);
    /// Fills the test, which stays the caller's.
    ///
    ///     service.SetInputFileName("SN-1042.zyr");
    ///     const bool isWhole = service.Import(&test) && service.GetFindings().isEmpty();
    /// \return false when the file cannot be opened or `uutTest` is null; a broken document gives true,
    ///         with what could be read: ask `GetFindings`
    bool Import(UUTTest* uutTest);
    QString GetErrorText() const;
    /// What was wrong with the last document or lost from it, in document order; at most 1000 and one that
    /// says that there are more.
    QList<ImportFinding> GetFindings() const;

    /// Handlers of the elements. Each reads up to the end of its element.
    /// \return false when the document ends before that
    bool Stream_UUTTest(UUTTest* uutTest);
    bool Stream_UnitUnderTest(UUTTest* uutTest);
    bool Stream_ProductType();
    bool Stream_ProductionLot(UUTTest* uutTest);
    bool Stream_TestEnvironment(UUTTest* uutTest);
    bool Stream_TestResults(UUTTest* uutTest);
    bool Stream_TestProgram();
    bool Stream_TestGroup();
    bool Stream_TestStep();
    bool Stream_TestMeasurement();
    bool Stream_TestLimits();
    bool Stream_TestResult();
    bool Stream_SubUnitTests(UUTTest* uutTest);
    bool Stream_SubUnitTest(UUTTest* uutTest);

private:
    CImportServiceReport_Private* d;
};

} // namespace ZYN
