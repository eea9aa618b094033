#include "ImageWidget.h"

#include <QPainter>

ImageWidget::ImageWidget(const QString& path, QWidget* parent)
    : QWidget(parent)
{
    if (!path.isNull())
        load(path);
    setCursor(Qt::ArrowCursor);
}

void ImageWidget::load(const QString& path)
{
    m_image.load(path);
    setMinimumSize(m_image.size());
    update();
}

QSize ImageWidget::sizeHint() const
{
    return m_image.isNull() ? QWidget::sizeHint() : m_image.size();
}

void ImageWidget::mousePressEvent(QMouseEvent*)
{
    Q_EMIT MouseClicked();
}

void ImageWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawImage((width() - m_image.width()) / 2, (height() - m_image.height()) / 2, m_image);
}
