#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

/// Shows a picture at its natural size in the middle of the widget and tells when it is pressed.
class ImageWidget : public QWidget
{
    Q_OBJECT

public:
    /// A null path loads nothing.
    explicit ImageWidget(const QString& path, QWidget* parent = nullptr);

    /// Shows another picture; one that can't be loaded leaves the widget empty. The widget gets no smaller
    /// than its picture.
    void load(const QString& path);

    QSize sizeHint() const override;

Q_SIGNALS:
    /// Any button was pressed.
    void MouseClicked();

protected:
    /// The press ends here.
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QImage m_image;
};
