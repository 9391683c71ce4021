#include <ZYNCommon/ProductionLot.h>

namespace ZYN {

ProductionLot::ProductionLot(long objectId, const QString& name)
    : ManagedObject(objectId, name)
{
}

ProductionLot::~ProductionLot() = default;

QString ProductionLot::GetOrderCode() const
{
    return m_orderCode;
}

void ProductionLot::SetOrderCode(const QString& orderCode)
{
    m_orderCode = orderCode;
}

bool ProductionLot::IsValid() const
{
    return !GetName().isEmpty();
}

} // namespace ZYN
