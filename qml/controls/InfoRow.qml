import QtQuick
import QtQuick.Layouts

// A row of a dialog: what it is at the left, its children at the right. The label gives way.
Rectangle {
    id: root

    property string label: ""
    default property alias content: row.data

    width: parent.width
    implicitHeight: 40
    radius: 9
    color: Theme.raised
    border.color: Theme.hair

    RowLayout {
        id: row

        anchors { fill: parent; leftMargin: 12; rightMargin: 6 }
        spacing: Theme.sp2

        ElidedText {
            Layout.fillWidth: true
            Layout.minimumWidth: Math.min(implicitWidth, 60)
            visible: root.label !== ""
            text: root.label
        }
    }
}
