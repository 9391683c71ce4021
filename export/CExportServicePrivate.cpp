#include "CExportServicePrivate.h"

#include "IExportBuilder.h"
#include "IOutputState.h"

#include <QtCore/QObject>

#include <new>

namespace ZYN {

CExportServicePrivate::~CExportServicePrivate()
{
    delete builder;
}

void CExportServicePrivate::Replace(IExportBuilder* newBuilder)
{
    delete builder;
    builder = newBuilder;
}

bool CExportServicePrivate::Start()
{
    if (!builder) {
        errorText = QObject::tr("No valid format provided.");
        return false;
    }
    if (fileName.isEmpty()) {
        errorText = QObject::tr("No filename provided.");
        return false;
    }
    if (!builder->OpenFile(fileName)) {
        errorText = QObject::tr("Could not create file: %1").arg(fileName);
        return false;
    }
    errorText.clear();
    return true;
}

bool CExportServicePrivate::Finish(bool walked)
{
    const auto* const output = dynamic_cast<const IOutputState*>(builder);
    m_outputComplete = walked && output && output->OutputComplete();
    if (output && !m_outputComplete)
        m_outputError = output->OutputError();
    return walked;
}

void CExportServicePrivate::NoteException() noexcept
{
    const char* text = nullptr;
    try {
        throw; // cppcheck-suppress rethrowNoCurrentException; callers are handlers
    } catch (const std::bad_alloc&) {
        text = QT_TRANSLATE_NOOP("QObject", "Not enough memory for the export.");
    } catch (...) {
        text = QT_TRANSLATE_NOOP("QObject", "The export failed inside the test data.");
    }
    try {
        errorText = QObject::tr(text);
    } catch (...) {
        // A text that needs no memory.
        errorText = QStringLiteral("Not enough memory for the export.");
    }
}

} // namespace ZYN
