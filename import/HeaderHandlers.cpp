// The header elements of a report, and the panel items.

#include "CImportServiceReport_Private.h"

#include "export/ModelAdapter.h"

#include <ZYNCommon/ProductTypeMultiPanel.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/Station.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ZYNSession.h>
#include <ZYNCommon/ZYNUser.h>

namespace ZYN {

using namespace Qt::StringLiterals;

namespace {

/// The id of objects whose own is not in the file. It means nothing.
constexpr long anyId = 42;

} // namespace

bool CImportServiceReport_Private::ReadUUTTest(UUTTest* uutTest)
{
    return ReadLeaf("UUTTest"_L1, [&](QStringView name, QStringView text, const QXmlStreamAttributes&) {
        if (name == "Result"_L1) {
            uutTest->SetResult(EN_ZYN_RESULT(Integer(text)));
            // A panel item has a stop time even where the report gives none.
            if (m_inSubUnitTests)
                uutTest->SetStopTimeString(u"0"_s);
        } else if (name == "Description"_L1) {
            uutTest->SetResultDescription(text.toString());
        } else if (name == "DateTime"_L1) {
            uutTest->SetStopTimeString(text.toString());
        } else if (name == "Duration"_L1) {
            uutTest->SetDuration(Duration(text));
        } else if (name == "TestTime"_L1) {
            uutTest->SetStartTimeString(text.toString());
        } else {
            return false;
        }
        return true;
    });
}

bool CImportServiceReport_Private::ReadUnitUnderTest(UUTTest* uutTest)
{
    QSharedPointer<UnitUnderTest> unit;
    const auto onProperty = [&](QStringView name, QStringView text, const QXmlStreamAttributes& attributes) {
        if (name == "Name"_L1)
            unit.reset(new UnitUnderTest(anyId, text.toString()));
        else if (name == "ProductType"_L1)
            m_productType.reset(new ProductType(Integer(attributes.value("Code"_L1)), text.toString()));
        else if (name != "SerialNo"_L1 && name != "Ident"_L1 && name != "PanelIndex"_L1)
            return false;
        else if (!unit)
            AddFinding(tr("'%1' of a unit that has no name yet, not read").arg(name));
        else if (name == "SerialNo"_L1)
            unit->SetSerialNo(text.toString());
        else if (name == "Ident"_L1)
            unit->SetIdentString(text.toString());
        else
            unit->SetPanelIndex(Integer(text));
        return true;
    };
    if (!ReadLeaf("UnitUnderTest"_L1, onProperty))
        return false;
    if (unit) {
        unit->SetProductType(m_productType);
        uutTest->SetUnitUnderTest(unit);
    }
    return true;
}

bool CImportServiceReport_Private::ReadProductType()
{
    if (!m_productType) {
        AddFinding(tr("'ProductType' before any 'UnitUnderTest', not read"));
        reader->skipCurrentElement();
        return !reader->hasError();
    }
    const auto multiPanel = m_productType->GetMultiPanelInfo();
    const auto onProperty = [&](QStringView name, QStringView text, const QXmlStreamAttributes&) {
        if (name == "Description"_L1)
            m_productType->SetDescription(text.toString());
        else if (name == "ArticelCode"_L1)
            m_productType->SetArticelCode(text.toString());
        else if (name == "Customer"_L1)
            m_productType->SetCustomer(text.toString());
        else if (name == "ClusterLevel"_L1)
            m_productType->SetClusterLevel(Integer(text, true));
        else if (name == "MCP"_L1)
            multiPanel->SetMultiPanel(Integer(text) != 0);
        else if (name == "MCPItems"_L1)
            multiPanel->SetPanelItems(Integer(text));
        else if (name == "MCPSplitting"_L1)
            multiPanel->SetSplitting(Integer(text) != 0);
        else if (name == "MCPSplittingMap"_L1)
            ReadSplittingMap(text.toString());
        else
            return name == "Name"_L1; // known from the unit
        return true;
    };
    return ReadElement("ProductType"_L1, onProperty, [&](QStringView name) {
        // The parameters of a product type are not read; they have no content.
        return name == "Parameter"_L1;
    });
}

void CImportServiceReport_Private::ReadSplittingMap(const QString& text)
{
    for (const QString& part : text.split(u' ')) {
        const QStringList pieces = part.split(u'_');
        if (pieces.size() >= 2)
            m_productType->AddTestProgram(Integer(pieces.first()));
    }
    m_productType->GetMultiPanelInfo()->SetSplittingString(text);
}

bool CImportServiceReport_Private::ReadProductionLot(UUTTest* uutTest)
{
    QSharedPointer<ProductionLot> lot;
    const auto onProperty = [&](QStringView name, QStringView text, const QXmlStreamAttributes&) {
        if (name == "LotNumber"_L1)
            lot.reset(new ProductionLot(anyId, text.toString()));
        else if (name != "OrderCode"_L1)
            return false;
        else if (lot)
            lot->SetOrderCode(text.toString());
        else
            AddFinding(tr("order code of a lot that has no number yet, not read"));
        return true;
    };
    if (!ReadLeaf("ProductionLot"_L1, onProperty))
        return false;
    if (lot)
        uutTest->SetProductionLot(lot);
    return true;
}

bool CImportServiceReport_Private::ReadTestEnvironment(UUTTest* uutTest)
{
    QString machineName;
    QString userName;
    QString workSpaceName;
    const auto onProperty = [&](QStringView name, QStringView text, const QXmlStreamAttributes&) {
        if (name == "MachineName"_L1)
            machineName = text.toString();
        else if (name == "User"_L1)
            userName = text.toString();
        else if (name == "Workspace"_L1)
            workSpaceName = text.toString();
        else
            return false;
        return true;
    };
    if (!ReadLeaf("TestEnvironment"_L1, onProperty))
        return false;

    // A session knows its user only as the one who is logged in to its workspace.
    const QString password = u"QXZW"_s;
    auto session = std::make_unique<ZYNSession>();
    const auto user = QSharedPointer<ZYNUser>::create(userName);
    user->SetPassword(password);
    const auto workSpace = QSharedPointer<WorkSpace>::create(anyId, workSpaceName);
    workSpace->SetUserList({user});
    ModelAdapter::LoginFirstUser(workSpace.data(), password);
    session->SetMachineName(machineName);
    session->SetWorkSpace(workSpace);
    uutTest->SetSession(session.release());
    return true;
}

bool CImportServiceReport_Private::ReadSubUnitTests(UUTTest* uutTest)
{
    m_inSubUnitTests = true;
    const auto noProperty = [](QStringView, QStringView, const QXmlStreamAttributes&) { return false; };
    return ReadElement("SubUnitTests"_L1, noProperty, [&](QStringView name) {
        if (name != "SubUnitTest"_L1)
            return false;
        const auto item = QSharedPointer<UUTTest>::create(anyId, QString());
        ReadSubUnitTest(item.data());
        uutTest->AddUUTTest(item);
        return true;
    });
}

bool CImportServiceReport_Private::ReadSubUnitTest(UUTTest* uutTest)
{
    const auto noProperty = [](QStringView, QStringView, const QXmlStreamAttributes&) { return false; };
    return ReadElement("SubUnitTest"_L1, noProperty, [&](QStringView name) {
        if (name == "UUTTest"_L1)
            ReadUUTTest(uutTest);
        else if (name == "UnitUnderTest"_L1)
            ReadUnitUnderTest(uutTest);
        else if (name == "TestResults"_L1)
            ReadTestResults(uutTest);
        else
            return false;
        return true;
    });
}

} // namespace ZYN
