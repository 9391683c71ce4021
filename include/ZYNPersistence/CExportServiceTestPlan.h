#pragma once

#include <ZYNPersistence/ZYNPersistenceGlobal.h>

#include <QtCore/QString>

namespace ZYN {

class CExportServiceTestPlan_Private;
class TestProgram;

/// Writes the test plan of a program as XML (version 3.0.0). Use and threads as `CExportServiceReport`.
class ZYNPERSISTENCE_EXPORT CExportServiceTestPlan {
public:
    /// \param excludeBinIds leave out validation properties whose name contains "BinId"
    explicit CExportServiceTestPlan(bool excludeBinIds);
    ~CExportServiceTestPlan();
    CExportServiceTestPlan(const CExportServiceTestPlan&) = delete;
    CExportServiceTestPlan& operator=(const CExportServiceTestPlan&) = delete;

    void SetOutputFileName(const QString& fileName);
    /// A program that has nothing to plan leaves no file.
    /// \return false when the export could not start (see `GetErrorText`) or the program is null
    bool Export(TestProgram* program);
    /// Why the last export could not start; empty when it did.
    QString GetErrorText() const;
    /// Whether the last export ran to its end and every byte reached the device.
    bool OutputComplete() const;
    /// Why the output of an export that could start is not complete, as far as that is known; else empty.
    QString GetOutputError() const;
    /// Filter for a file dialog, translated.
    static QString FileNameFilter();

private:
    CExportServiceTestPlan_Private* d;
};

} // namespace ZYN
