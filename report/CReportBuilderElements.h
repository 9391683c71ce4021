#pragma once

#include "export/CExportBuilderImp.h"

#include <memory>

namespace ZYN {

class UPrivateXMLWriter;

/// What documents made of the XML report's elements have in common: the element writer, the end of the
/// document and the header elements that more than one of them has.
class CReportBuilderElements : public CExportBuilderImp {
public:
    CReportBuilderElements();
    ~CReportBuilderElements() override;

    /// Ends the document, which is handed to the device; that is closed and let go.
    /// \return true
    bool Close() override;

    bool BeginUnitUnderTest(UnitUnderTest* unit) override;
    bool BeginProductType(ProductType* productType) override;
    bool BeginSession(ZYNSession* session) override;

protected:
    const std::unique_ptr<UPrivateXMLWriter> m_writer;
};

} // namespace ZYN
