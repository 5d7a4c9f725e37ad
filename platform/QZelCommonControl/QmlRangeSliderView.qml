import QtQuick 2.15
import QtQuick.Controls 2.15

// Shows two positions between 0 and 1, left to right in every language; whoever owns it moves them.
RangeSlider {
    id: slider

    property bool isLowerLit: false
    property bool isUpperLit: false
    readonly property real handleWidth: 12
    readonly property color accent: "#e76900"

    component Handle: Rectangle {
        property real position
        property bool isLit

        x: slider.leftPadding + position * (slider.availableWidth - width)
        y: slider.topPadding + (slider.availableHeight - height) / 2
        implicitWidth: slider.handleWidth
        implicitHeight: 17
        radius: 3
        color: isLit ? slider.accent : "white"
        border.color: isLit ? slider.accent : "#8c8c8e"
    }

    from: 0
    to: 1
    focusPolicy: Qt.NoFocus
    padding: 4
    leftPadding: 6
    rightPadding: 6

    background: Rectangle {
        color: "white"
        border.color: "#cccccd"

        Rectangle {
            x: slider.leftPadding + slider.handleWidth / 2
            y: (slider.height - height) / 2
            width: slider.availableWidth - slider.handleWidth
            height: 4
            radius: 2
            color: "#e1dede"

            Rectangle {
                x: slider.first.position * parent.width
                width: (slider.second.position - slider.first.position) * parent.width
                height: parent.height
                color: slider.accent
            }
        }
    }

    first.handle: Handle {
        position: slider.first.position
        isLit: slider.isLowerLit
    }
    second.handle: Handle {
        position: slider.second.position
        isLit: slider.isUpperLit
    }
}
