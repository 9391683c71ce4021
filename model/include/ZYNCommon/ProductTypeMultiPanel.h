#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QString>

namespace ZYN {

/// How a product type is arranged on a panel.
class ZYNCOMMON_EXPORT ProductTypeMultiPanel {
public:
    bool IsMultiPanel() const;
    /// Whether the panel is split into its items during the test.
    bool HasSplitting() const;
    /// Number of items on the panel.
    long GetPanelItems() const;
    /// The splitting map: "programId_items" parts with blanks between them.
    QString GetSplittingString() const;

    void SetMultiPanel(bool multiPanel);
    void SetSplitting(bool splitting);
    void SetPanelItems(long items);
    void SetSplittingString(const QString& splitting);

private:
    bool m_multiPanel = false;
    bool m_splitting = false;
    long m_items = 0;
    QString m_splittingMap;
};

} // namespace ZYN
