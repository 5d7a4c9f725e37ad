import QtQuick 2.15

// Shows two positions between 0 and 1, left to right in every language. Under the track stand the ends of
// the section that most of it covers; the thin ends of the track lead to the limits.
Rectangle {
    id: slider

    property real lower: 0
    property real upper: 1
    property bool isLowerLit: false
    property bool isUpperLit: false
    property real sectionBegin: 0
    property real sectionEnd: 1
    property string minimumText
    property string sectionMinimumText
    property string sectionMaximumText
    property string maximumText
    readonly property color accent: "#e76900"

    component Handle: Rectangle {
        property bool isLit

        y: -6
        width: 12; height: 13
        radius: 3
        color: isLit ? slider.accent : "white"
        border.color: isLit ? slider.accent : "#8c8c8e"
    }

    component Label: Text {
        y: slider.height - height
        color: "#3d3d3d"
        font.pixelSize: 9
    }

    color: "white"
    border.color: "#cccccd"

    Label { x: 2; text: slider.minimumText }
    Label { x: slider.minimumText ? track.x + section.x : 2; text: slider.sectionMinimumText }
    Label {
        x: (slider.maximumText ? track.x + section.x + section.width : slider.width - 2) - width
        text: slider.sectionMaximumText
    }
    Label { x: slider.width - width - 2; text: slider.maximumText }

    Rectangle {
        id: track

        x: 12
        y: 8
        width: slider.width - 24
        height: 1
        color: "#8c8c8e"

        Rectangle {
            id: section

            x: slider.sectionBegin * track.width
            y: -2
            width: (slider.sectionEnd - slider.sectionBegin) * track.width
            height: 5
            radius: 2
            color: "#e1dede"
        }
        Rectangle {
            x: slider.lower * track.width
            y: -2; height: 5
            width: (slider.upper - slider.lower) * track.width
            color: slider.accent
        }
        Handle { x: slider.lower * track.width - 6; isLit: slider.isLowerLit }
        Handle { x: slider.upper * track.width - 6; isLit: slider.isUpperLit }
    }
}
