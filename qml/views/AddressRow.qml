import QtQuick
import QtQuick.Layouts

// What to type in where the code cannot be scanned.
Rectangle {
    id: root

    required property string address // with port

    implicitHeight: 44
    radius: Theme.rRow
    color: Theme.raised
    border.color: Theme.hair

    RowLayout {
        anchors { fill: parent; leftMargin: 14; rightMargin: 14 }
        spacing: Theme.sp3

        ElidedText {
            Layout.fillWidth: true
            text: qsTr("Can't scan?")
            color: Theme.muted
        }

        Text {
            text: root.address
            textFormat: Text.PlainText
            color: Theme.textc
            font.pixelSize: Theme.fsBtnLg
            font.weight: Font.DemiBold
        }
    }
}
