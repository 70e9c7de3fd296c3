pragma ComponentBehavior: Bound

import QtQuick

// Choices side by side with an indicator that slides to the current one. Every segment is as wide
// as its label, and shares what is left. Left and Right move among them.
Rectangle {
    id: root

    required property list<string> labels
    required property int current
    property bool tabs: false // for screen readers: pages of a dialog instead of choices

    readonly property Item currentItem: segments.count > 0 ? segments.itemAt(current) : null
    readonly property real spare: (row.width - natural.width) / Math.max(1, labels.length)

    signal picked(int index)

    implicitHeight: 36
    radius: Theme.rControl
    color: Theme.track
    border.color: Theme.hair

    Row { // measures the labels
        id: natural

        visible: false

        Repeater {
            id: measures

            model: root.labels

            Text {
                required property string modelData

                text: modelData
                font.pixelSize: Theme.fsCaption
                font.weight: Font.DemiBold
            }
        }
    }

    Rectangle {
        x: row.x + (root.currentItem ? root.currentItem.x : 0)
        y: row.y
        width: root.currentItem ? root.currentItem.width : 0
        height: row.height
        radius: Theme.rChip
        color: Theme.segment
        border.color: Theme.hair

        Behavior on x { enabled: !Motion.still; NumberAnimation { duration: 140; easing.type: Easing.OutCubic } }
        Behavior on width { enabled: !Motion.still; NumberAnimation { duration: 140; easing.type: Easing.OutCubic } }
    }

    Row {
        id: row

        anchors { fill: parent; margins: 3 }

        Repeater {
            id: segments

            model: root.labels

            Clickable {
                id: segment

                required property string modelData
                required property int index
                readonly property bool isCurrent: index === root.current

                width: (measures.itemAt(index)?.width ?? 0) + root.spare
                height: row.height
                ringRadius: Theme.rChip
                ringGap: -1
                Accessible.role: root.tabs ? Accessible.PageTab : Accessible.RadioButton
                Accessible.name: modelData
                Accessible.checkable: !root.tabs
                Accessible.checked: isCurrent
                Accessible.selected: isCurrent
                Keys.onLeftPressed: root.step(index, -1)
                Keys.onRightPressed: root.step(index, 1)
                onClicked: root.picked(index)

                contentItem: ElidedText {
                    text: segment.modelData
                    hinted: segment.visualFocus
                    color: segment.isCurrent || segment.hovered ? Theme.textc : Theme.muted
                    font.pixelSize: Theme.fsCaption
                    font.weight: segment.isCurrent ? Font.DemiBold : Font.Normal
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                }
            }
        }
    }

    function step(from: int, by: int): void {
        const next = from + by
        if (next >= 0 && next < segments.count) {
            segments.itemAt(next).forceActiveFocus(Qt.TabFocusReason)
            picked(next)
        }
    }
}
