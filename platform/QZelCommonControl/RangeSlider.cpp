#include "RangeSlider.h"

RangeSlider::RangeSlider(Qt::Orientation orientation, Options options, QWidget* parent)
    : QWidget(parent)
    , m_orientation(orientation)
    , m_options(options)
{}
