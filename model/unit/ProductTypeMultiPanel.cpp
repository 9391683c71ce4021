#include <ZYNCommon/ProductTypeMultiPanel.h>

namespace ZYN {

bool ProductTypeMultiPanel::IsMultiPanel() const
{
    return m_multiPanel;
}

bool ProductTypeMultiPanel::HasSplitting() const
{
    return m_splitting;
}

long ProductTypeMultiPanel::GetPanelItems() const
{
    return m_items;
}

QString ProductTypeMultiPanel::GetSplittingString() const
{
    return m_splittingMap;
}

void ProductTypeMultiPanel::SetMultiPanel(bool multiPanel)
{
    m_multiPanel = multiPanel;
}

void ProductTypeMultiPanel::SetSplitting(bool splitting)
{
    m_splitting = splitting;
}

void ProductTypeMultiPanel::SetPanelItems(long items)
{
    m_items = items;
}

void ProductTypeMultiPanel::SetSplittingString(const QString& splitting)
{
    m_splittingMap = splitting;
}

} // namespace ZYN
