#pragma once

#include <IProfileBar.h>

class cProfileBar;

/// A profile bar for another module, which embeds its item, its list and its search frame. Nothing here owns
/// them or the bar: the module keeps what it got as long as the process runs. Should it end the list all the
/// same, what concerns the list does nothing.
class cProfileBarImpl final : public IProfileBar
{
    Q_DISABLE_COPY(cProfileBarImpl)

public:
    cProfileBarImpl();

    QGraphicsItem* graphicsItem() override;
    QListWidget* profileList() override;
    bool addProfile(const cJsonValue& profile) override;
    bool setDeviceFilter(const QString& deviceId) override;
    void setTileDragEnabled(bool enabled) override;
    /// Sets the list's drag and drop mode as well, whatever is asked.
    void setDropsEnabled(bool enabled) override;
    QStringList selectedProfileIds() override;
    QString currentProfileId() override;
    bool setButtons(const QSet<int>& buttons) override;
    bool setMenuOptions(const QSet<int>& options) override;
    QFrame* searchFrame() override;

private:
    cProfileBar* m_bar = nullptr;
};
