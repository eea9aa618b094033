#pragma once

#include <QGraphicsItem>
#include <QObject>
#include <QPointer>
#include <QRectF>
#include <QSet>
#include <QString>
#include <QStringList>

class cGraphicsButton;
class cGraphicsRibbonButton;
class cProfileList;
class QAction;
class QFrame;
class QPropertyAnimation;

/// The bar of profiles at the head of the view: a title, three buttons, two arrows that scroll, and the list
/// of tiles.
///
/// It tells the rest of the plug-in when the current profile changes, by the pair of events
/// "ProfileSelectionChanging" and "ProfileSelectionChanged". What it offers in its menus it asks of the host.
/// It paints nothing itself.
///
/// List and search frame are made here and have no parent: whoever embeds the bar puts them into its own
/// widgets and owns them. They may go before the bar.
class cProfileBar : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)
    /// Place of the list's horizontal scroll bar.
    Q_PROPERTY(int value READ value WRITE setValue)

public:
    /// Fills its list, which makes the profile of the last run current. Until then `profileId` is the current
    /// one.
    cProfileBar(const QRectF& rect, const QString& profileId, QGraphicsItem* parent);
    ~cProfileBar() override;

    cProfileList* profileList() const;
    QString currentProfileId() const { return m_currentProfileId; }
    /// A frame with the search box, made at the first call.
    QFrame* searchFrame();

    /// The buttons to show, as ProfileBarConstants::BarButton numbers them; the others are hidden and leave
    /// no gap. To be called once.
    bool setButtons(const QSet<int>& buttons);
    /// See cProfileList::setMenuOptions(). False if the list is gone.
    bool setMenuOptions(const QSet<int>& options);

    int value() const;
    void setValue(int value);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

Q_SIGNALS:
    void useGenericForAllGkeys(const QString& profileID);
    void unassignAllGkeys(const QString& profileID);
    void printProfile(const QString& profileID);
    void hoverIn();
    void hoverOut();
    void useDefaultForAllGkeys(const QString& profileID);

public Q_SLOTS:
    void newProfile();
    void scanForGames();

private Q_SLOTS:
    void onPrintClicked();
    /// Saves all profiles and shows nothing. Not connected here, nor are the two sorts.
    void onSilentSaveClicked();
    /// The point is in the coordinates of the scene.
    void onNewMenuClicked(const QPoint& point);
    /// Opens the menu of import and export.
    void onSaveMenuClicked();
    /// An event of the host, and what the list says when another tile is current.
    void onCurrentProfileSwitched(const QString& id);
    void onMenuImportProfile();
    /// Exports the current profile, also from the menu of another tile.
    void onMenuExportProfile();
    void onMenuSortProfileAscending();
    void onMenuSortProfileDescending();
    void onMacrosDropped(const QStringList& macroIDs, const QString& profileID);
    void onCopyProfileClicked(QAction* profileAction);
    void onScrollLeftClicked();
    void onScrollRightClicked();
    void onProfilesScrollChanged(int value);
    void onProfilesScrollRangeChanged(int min, int max);

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;

private:
    Q_DISABLE_COPY(cProfileBar)

    void createTitle();
    void createButtons();
    void createArrows();
    cGraphicsButton* createArrow(const char* picture, const QPoint& pos, const char* slot);
    void createList();
    void connectList();
    void createScrollAnimation();

    void sortProfiles(Qt::SortOrder order);
    void scrollBy(int step);
    void refreshArrows();
    static void fade(QPropertyAnimation& animation, bool show);
    QString exportFolder() const;

    QPointer<cProfileList> m_list;
    QString m_currentProfileId;
    const QRectF m_rect;
    cGraphicsButton* m_leftArrow = nullptr;
    cGraphicsButton* m_rightArrow = nullptr;
    /// The three animations are owned.
    QPropertyAnimation* m_scrollAnimation = nullptr;
    QPropertyAnimation* m_leftFade = nullptr;
    QPropertyAnimation* m_rightFade = nullptr;
    /// Left edges of the places in which the buttons stand while all are shown.
    int m_buttonPlaces[3] = {};
    cGraphicsRibbonButton* m_newButton = nullptr;
    cGraphicsButton* m_importButton = nullptr;
    cGraphicsButton* m_printButton = nullptr;
    QPointer<QFrame> m_searchFrame;
    bool m_leftShown = false;
    bool m_rightShown = false;
};
