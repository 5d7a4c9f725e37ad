#include "QZelCommonControl/ButtonSelecterView.h"
#include "QZelCommonControl/QmlRangeSliderView.h"
#include "QZelCommonControl/RangeSlider.h"

ButtonSelecterView::ButtonSelecterView() = default;

int ButtonSelecterView::SetFilterSourceOperation4IO(int, ENUM_IO_SUBSCRIBE_TYPE_, QString, QString info)
{
    m_info = std::move(info);
    return 0;
}

int ButtonSelecterView::GetFilterSourceOperation4IO(int, ENUM_IO_SUBSCRIBE_TYPE_, QString, QString& info)
{
    info = m_info;
    return m_info.isEmpty() ? -1 : 0;
}

int ButtonSelecterView::DelFilterSourceOperation4IO(int, ENUM_IO_SUBSCRIBE_TYPE_, QString)
{
    m_info.clear();
    return 0;
}

void ButtonSelecterView::UpdateSubscribeMenuData(QJsonArray&, int) {}

void ButtonSelecterView::SetFixedSize(int width, int height)
{
    setFixedSize(width, height);
}

void ButtonSelecterView::SetEdiSubscribeText(QString text)
{
    setProperty("text", text);
}

void ButtonSelecterView::SetHide() {}

QmlRangeSliderView::QmlRangeSliderView() = default;

void QmlRangeSliderView::SetRange(int, int) {}

void QmlRangeSliderView::SetCurrentMinD(double value)
{
    setProperty("lower", value);
}

void QmlRangeSliderView::SetCurrentMaxD(double value)
{
    setProperty("upper", value);
}

RangeSlider::RangeSlider(Qt::Orientation, Options, QWidget* parent)
    : QWidget(parent)
{}
