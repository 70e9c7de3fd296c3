import QtQuick

// Shown while a program reads the camera.
Rectangle {
    implicitWidth: row.width + 22
    implicitHeight: 26
    radius: 13
    color: Theme.chipScrim
    border.color: Theme.accent

    Accessible.role: Accessible.StaticText
    Accessible.name: label.text

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 7

        Dot { anchors.verticalCenter: parent.verticalCenter }

        Text {
            id: label

            //: On a small chip. Of the camera: a program reads it.
            text: qsTr("In use")
            color: Theme.onVideoText
            font.pixelSize: Theme.fsSmall
        }
    }
}
