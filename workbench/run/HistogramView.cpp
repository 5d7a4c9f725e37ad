#include "run/HistogramView.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace {

const QColor rangeColour(0xdc, 0xf0, 0xdc);
const QColor varyingColour(0xf4, 0xec, 0xc8);
const QColor boundColour(0x2e, 0x8b, 0x40);
const QColor barColour(0x4a, 0x78, 0xb0);
const QColor outsideColour(0xc0, 0x50, 0x50);
constexpr int margin = 6;
constexpr int axisDigits = 6;

QString axisText(double value)
{
    return QString::number(value, 'g', axisDigits);
}

QString boundText(const BoundSpan& bound)
{
    return bound.varies()
               ? HistogramView::tr("varies %1 to %2").arg(axisText(bound.least), axisText(bound.greatest))
               : axisText(bound.least);
}

} // namespace

void BoundSpan::include(double bound)
{
    least = std::fmin(least, bound);
    greatest = std::fmax(greatest, bound);
}

/// What the axis covers, never empty, and where it is drawn.
struct HistogramView::Plot
{
    QRectF rect;
    double begin;
    double end;

    // Extends the axis to a value that lies within a length of it.
    void reach(double value, double length)
    {
        if (value < begin && value >= begin - length) {
            begin = value;
        } else if (value > end && value <= end + length) {
            end = value;
        }
    }

    double xOf(double value) const
    {
        return rect.left() + std::clamp((value - begin) / (end - begin), 0.0, 1.0) * rect.width();
    }

    // From the top to the bottom; nothing where a value is unknown.
    QRectF between(double from, double to) const
    {
        return from <= to ? QRectF(QPointF(xOf(from), rect.top()), QPointF(xOf(to), rect.bottom()))
                          : QRectF();
    }
};

HistogramView::HistogramView(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void HistogramView::setValues(const Histogram& values, const BoundSpan& minimum, const BoundSpan& maximum)
{
    m_values = values;
    m_minimum = minimum;
    m_maximum = maximum;
    setAccessibleDescription(values.isEmpty()
                                 ? QString()
                                 : tr("%1 values from %2 to %3")
                                       .arg(QString::number(values.count()), axisText(values.minimum()),
                                            axisText(values.maximum())));
    update();
}

void HistogramView::mark(double value)
{
    m_marked = value;
    update();
}

void HistogramView::clear()
{
    setValues({}, {}, {});
}

QSize HistogramView::sizeHint() const
{
    return {260, 120};
}

QSize HistogramView::minimumSizeHint() const
{
    return {160, 70};
}

HistogramView::Plot HistogramView::plot() const
{
    const int textHeight = fontMetrics().height();
    Plot plot = {QRectF(rect()).adjusted(margin, textHeight + 2, -margin, -textHeight - 2),
                 m_values.minimum(), m_values.maximum()};
    if (plot.begin == plot.end) {
        const double room = std::max(std::abs(plot.begin), 1.0) / 2;
        plot.begin -= room;
        plot.end += room;
    }
    const double length = plot.end - plot.begin;
    for (const double bound : {m_minimum.least, m_minimum.greatest, m_maximum.least, m_maximum.greatest}) {
        plot.reach(bound, length);
    }
    return plot;
}

bool HistogramView::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || m_values.isEmpty()) {
        return QWidget::event(event);
    }
    const auto* const help = static_cast<QHelpEvent*>(event);
    const Plot axis = plot();
    const auto& bins = m_values.bins();
    QString text;
    for (int i = 0; i < Histogram::binCount; ++i) {
        const double from = m_values.lowerEdge(i);
        const double to = m_values.lowerEdge(i + 1);
        if (bins[i] > 0 && help->x() >= axis.xOf(from) &&
            help->x() < std::max(axis.xOf(to), axis.xOf(from) + 1)) {
            text = tr("%1 values from %2 to %3").arg(QString::number(bins[i]), axisText(from), axisText(to));
        }
    }
    QToolTip::showText(help->globalPos(), text, this);
    return true;
}

void HistogramView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (m_values.isEmpty()) {
        painter.setPen(palette().color(QPalette::Disabled, QPalette::WindowText));
        painter.drawText(rect(), Qt::AlignCenter, tr("no values"));
        return;
    }
    const Plot axis = plot();
    const QRectF& area = axis.rect;
    // Where all rows have their range, then where only some have it.
    painter.fillRect(axis.between(m_minimum.greatest, m_maximum.least), rangeColour);
    for (const BoundSpan& bound : {m_minimum, m_maximum}) {
        if (bound.varies()) {
            painter.fillRect(axis.between(bound.least, bound.greatest), varyingColour);
        }
    }

    const auto& bins = m_values.bins();
    const auto highest = static_cast<double>(*std::max_element(bins.cbegin(), bins.cend()));
    // Whether no value of the bin can be within the range.
    const auto isOutside = [&](int bin) {
        return m_values.lowerEdge(bin + 1) <= m_minimum.least ||
               m_values.lowerEdge(bin) > m_maximum.greatest || m_minimum.least > m_maximum.greatest;
    };
    for (int i = 0; i < Histogram::binCount; ++i) {
        if (bins[i] > 0) {
            const double left = axis.xOf(m_values.lowerEdge(i));
            const double width = std::max(axis.xOf(m_values.lowerEdge(i + 1)) - left, 1.0);
            const double height = std::max(static_cast<double>(bins[i]) / highest * area.height(), 1.0);
            painter.fillRect(QRectF(left, area.bottom() - height, width, height),
                             isOutside(i) ? outsideColour : barColour);
        }
    }

    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawLine(area.bottomLeft(), area.bottomRight());
    const QRectF below(area.left(), area.bottom() + 2, area.width(), fontMetrics().height());
    painter.drawText(below, Qt::AlignLeft, axisText(axis.begin));
    painter.drawText(below, Qt::AlignRight, axisText(axis.end));
    if (m_marked >= axis.begin && m_marked <= axis.end) {
        painter.setPen(QPen(palette().color(QPalette::WindowText), 1, Qt::DashLine));
        painter.drawLine(axis.between(m_marked, m_marked).topLeft(),
                         axis.between(m_marked, m_marked).bottomLeft());
    }

    painter.setPen(boundColour);
    for (const double bound : {m_minimum.least, m_minimum.greatest, m_maximum.least, m_maximum.greatest}) {
        if (bound >= axis.begin && bound <= axis.end) {
            painter.drawLine(axis.between(bound, bound).topLeft(), axis.between(bound, bound).bottomLeft());
        }
    }
    if (!std::isnan(m_minimum.least) && !std::isnan(m_maximum.least)) {
        painter.drawText(QRectF(area.left(), 0, area.width(), fontMetrics().height()), Qt::AlignHCenter,
                         tr("range %1 to %2").arg(boundText(m_minimum), boundText(m_maximum)));
    }
}
