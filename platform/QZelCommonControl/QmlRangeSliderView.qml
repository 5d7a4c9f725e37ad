import QtQuick 2.15
import QtQuick.Controls 2.15

// Shows two positions between 0 and 1, left to right in every language; whoever owns it moves them. Under
// the track stand the ends of the section that most of it covers, and the limits of the two end zones.
RangeSlider {
    id: slider

    property bool isLowerLit: false
    property bool isUpperLit: false
    property real sectionBegin: 0
    property real sectionEnd: 1
    property string minimumText
    property string sectionMinimumText
    property string sectionMaximumText
    property string maximumText
    readonly property real handleWidth: 12
    readonly property color accent: "#e76900"

    component Handle: Rectangle {
        property real position
        property bool isLit

        x: slider.leftPadding + position * (slider.availableWidth - width)
        y: slider.topPadding
        implicitWidth: slider.handleWidth
        implicitHeight: 13
        radius: 3
        color: isLit ? slider.accent : "white"
        border.color: isLit ? slider.accent : "#8c8c8e"
    }

    component Label: Text {
        y: slider.height - height
        color: "#3d3d3d"
        font.pixelSize: 9
        horizontalAlignment: Text.AlignLeft
    }

    from: 0
    to: 1
    focusPolicy: Qt.NoFocus
    padding: 2
    leftPadding: 6
    rightPadding: 6

    background: Rectangle {
        color: "white"
        border.color: "#cccccd"

        // The end zones are the thin part of the track.
        Rectangle {
            id: track

            x: slider.leftPadding + slider.handleWidth / 2
            y: slider.topPadding + 6
            width: slider.availableWidth - slider.handleWidth
            height: 1
            color: "#8c8c8e"

            Rectangle {
                id: section

                x: slider.sectionBegin * parent.width
                y: -2
                width: (slider.sectionEnd - slider.sectionBegin) * parent.width
                height: 5
                radius: 2
                color: "#e1dede"
            }
            Rectangle {
                x: slider.first.position * parent.width
                y: -2
                width: (slider.second.position - slider.first.position) * parent.width
                height: 5
                color: slider.accent
            }
        }

        Label { x: 2; text: slider.minimumText }
        Label { x: slider.minimumText ? track.x + section.x : 2; text: slider.sectionMinimumText }
        Label {
            x: (slider.maximumText ? track.x + section.x + section.width : slider.width - 2) - width
            text: slider.sectionMaximumText
        }
        Label { x: slider.width - width - 2; text: slider.maximumText }
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
