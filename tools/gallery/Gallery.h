#pragma once

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPointF>
#include <QString>

class QGraphicsItem;
class QWidget;

/// The path of a picture of the plug-in.
QString pluginImage(const char* name);

/// Every widget of the scene in all its states, in rows with captions, on the colour of the canvas. All of
/// them react to the pointer as they do in the view.
class Gallery : public QGraphicsView
{
    Q_OBJECT

public:
    explicit Gallery(QWidget* parent = nullptr);

    /// The whole gallery as a picture of its own size, also of what lies outside the window.
    QPixmap picture();

private:
    // One row each; the implementation is cut by what they show.
    void showPanels();
    void showButtons();
    void showTextButtons();
    void showMenuButtons();
    void showRibbonButtons();
    void showButtonLists();
    void showTexts();
    void showLabels();
    void showModeButtons();
    void showGlows();
    void showFilmStrips();
    void showScrollBars();
    void showTooltips();
    void showTrashCans();
    void showClickableLabels();

    void startRow(const QString& title);
    /// Places the item in the row, its bounding rectangle beginning there, with the caption below.
    void add(QGraphicsItem* item, const QString& caption);
    void add(QWidget* widget, const QString& caption);
    void addText(const QString& text, const QPointF& place, const QColor& color);
    void place(const QString& caption, const QRectF& bounds);

    QGraphicsScene m_scene;
    QPointF m_next;
    qreal m_rowBottom = 0;
};
