#include "run/HistogramView.h"

#include "judgement/Judgement.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

const QColor rangeColour(0xdc, 0xf0, 0xdc);
const QColor boundColour(0x2e, 0x8b, 0x40);
const QColor barColour(0x4a, 0x78, 0xb0);
constexpr int margin = 6;
constexpr int axisDigits = 6;

QString axisText(double value)
{
    return QString::number(value, 'g', axisDigits);
}

// What the axis covers; never empty.
struct Axis
{
    double begin;
    double end;

    // Extends it to a value that lies within its own length.
    void reach(double value, double length)
    {
        if (value < begin && value >= begin - length) {
            begin = value;
        } else if (value > end && value <= end + length) {
            end = value;
        }
    }
};

Axis axisOf(const Histogram& values, double minimum, double maximum)
{
    Axis axis = {values.minimum(), values.maximum()};
    if (axis.begin == axis.end) {
        const double room = std::max(std::abs(axis.begin), 1.0) / 2;
        axis = {axis.begin - room, axis.end + room};
    }
    const double length = axis.end - axis.begin;
    axis.reach(minimum, length);
    axis.reach(maximum, length);
    return axis;
}

} // namespace

HistogramView::HistogramView(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void HistogramView::show(const Histogram& values, double minimum, double maximum)
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

void HistogramView::clear()
{
    show(Histogram(), unknown, unknown);
}

QSize HistogramView::sizeHint() const
{
    return {260, 120};
}

QSize HistogramView::minimumSizeHint() const
{
    return {160, 70};
}

void HistogramView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (m_values.isEmpty()) {
        painter.setPen(palette().color(QPalette::Disabled, QPalette::WindowText));
        painter.drawText(rect(), Qt::AlignCenter, tr("no values"));
        return;
    }
    const int textHeight = fontMetrics().height();
    const QRectF plot = QRectF(rect()).adjusted(margin, textHeight + 2, -margin, -textHeight - 2);
    const Axis axis = axisOf(m_values, m_minimum, m_maximum);
    const auto xOf = [&](double value) {
        const double part = (value - axis.begin) / (axis.end - axis.begin);
        return plot.left() + std::clamp(part, 0.0, 1.0) * plot.width();
    };

    if (m_minimum <= m_maximum && m_minimum <= axis.end && m_maximum >= axis.begin) {
        painter.fillRect(QRectF(QPointF(xOf(m_minimum), plot.top()), QPointF(xOf(m_maximum), plot.bottom())),
                         rangeColour);
    }

    const auto& bins = m_values.bins();
    const auto highest = static_cast<double>(*std::max_element(bins.cbegin(), bins.cend()));
    for (int i = 0; i < Histogram::binCount; ++i) {
        if (bins[i] > 0) {
            const double left = xOf(m_values.lowerEdge(i));
            const double width = std::max(xOf(m_values.lowerEdge(i + 1)) - left, 1.0);
            const double height = std::max(static_cast<double>(bins[i]) / highest * plot.height(), 1.0);
            painter.fillRect(QRectF(left, plot.bottom() - height, width, height), barColour);
        }
    }

    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawLine(plot.bottomLeft(), plot.bottomRight());
    const QRectF below(plot.left(), plot.bottom() + 2, plot.width(), textHeight);
    painter.drawText(below, Qt::AlignLeft, axisText(axis.begin));
    painter.drawText(below, Qt::AlignRight, axisText(axis.end));

    painter.setPen(boundColour);
    const QRectF above(plot.left(), 0, plot.width(), textHeight);
    for (const double bound : {m_minimum, m_maximum}) {
        if (bound >= axis.begin && bound <= axis.end) {
            painter.drawLine(QPointF(xOf(bound), plot.top()), QPointF(xOf(bound), plot.bottom()));
        }
    }
    if (!std::isnan(m_minimum) && !std::isnan(m_maximum)) {
        painter.drawText(above, Qt::AlignHCenter,
                         tr("range %1 to %2").arg(axisText(m_minimum), axisText(m_maximum)));
    }
}
