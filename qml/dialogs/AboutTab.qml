import QtQuick

// Settings: what this program is.
Item {
    id: root

    required property string version
    required property string homeUrl

    implicitHeight: column.height

    Column {
        id: column

        anchors.centerIn: parent
        width: parent.width
        spacing: Theme.sp3

        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 72
            height: 72
            radius: 18
            color: Theme.raised
            border.color: Theme.hair

            Image {
                anchors.centerIn: parent
                width: 48
                height: 48
                source: "qrc:/assets/icons/app-icon-256.png"
                mipmap: true
            }
        }

        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: "Pevrix"
            color: Theme.textc
            font.pixelSize: Theme.fsH2
            font.weight: Font.DemiBold
        }

        Text {
            width: parent.width
            text: qsTr("Turn your phone into a PC webcam")
            color: Theme.muted
            font.pixelSize: Theme.fsBody
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }

        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            width: versionText.implicitWidth + 18
            height: 22
            radius: Theme.rChip
            color: Theme.accentSoft

            Text {
                id: versionText

                anchors.centerIn: parent
                text: "v" + root.version
                color: Theme.accentStrong
                font.pixelSize: Theme.fsSmall
                font.weight: Font.DemiBold
            }
        }

        LinkText {
            anchors.horizontalCenter: parent.horizontalCenter
            label: root.homeUrl.substring(root.homeUrl.indexOf("//") + 2)
            url: root.homeUrl
        }
    }
}
