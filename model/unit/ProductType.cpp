#include <ZYNCommon/ProductType.h>

#include <ZYNCommon/ProductTypeMultiPanel.h>

#include <QtCore/QXmlStreamReader>

namespace ZYN {

namespace {

/// Whether a reader of XML finds the key as the name of the only attribute of the only element.
bool IsReadBack(const QString& key)
{
    QXmlStreamReader reader(QStringLiteral("<P %1=\"\"/>").arg(key));
    const bool isAlone = reader.readNextStartElement() && reader.attributes().size() == 1 &&
                         reader.attributes().first().name() == key;
    return isAlone && reader.readNext() == QXmlStreamReader::EndElement &&
           reader.readNext() == QXmlStreamReader::EndDocument;
}

} // namespace

ProductType::ProductType(long objectId, const QString& name)
    : ManagedObject(objectId, name)
    , m_multiPanel(QSharedPointer<ProductTypeMultiPanel>::create())
{
}

ProductType::~ProductType() = default;

QString ProductType::GetArticelCode() const
{
    return m_articelCode;
}

QString ProductType::GetCustomer() const
{
    return m_customer;
}

QString ProductType::GetDescription() const
{
    return m_description;
}

long ProductType::GetClusterLevel() const
{
    return m_clusterLevel;
}

QSharedPointer<ProductTypeMultiPanel> ProductType::GetMultiPanelInfo() const
{
    return m_multiPanel;
}

QList<int> ProductType::GetTestPrograms() const
{
    return m_testPrograms;
}

void ProductType::SetArticelCode(const QString& code)
{
    m_articelCode = code;
}

void ProductType::SetCustomer(const QString& customer)
{
    m_customer = customer;
}

void ProductType::SetDescription(const QString& description)
{
    m_description = description;
}

void ProductType::SetClusterLevel(long level)
{
    m_clusterLevel = level;
}

QStringList ProductType::GetUnsafeParameterKeys() const
{
    QStringList keys = GetParameters().keys();
    keys.removeIf(IsReadBack);
    return keys;
}

bool ProductType::IsValid() const
{
    return ManagedObject::IsValid();
}

void ProductType::AddTestProgram(int programId)
{
    if (!m_testPrograms.contains(programId))
        m_testPrograms.append(programId);
}

} // namespace ZYN
