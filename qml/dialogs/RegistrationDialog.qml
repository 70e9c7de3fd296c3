import QtQuick

// Asks whether to register a camera library that others can change.
Modal {
    id: root

    property string folder

    signal confirmed()

    title: qsTr("Register the camera?")
    bodySpacing: Theme.sp4

    Text {
        width: parent.width
        text: qsTr("Others can change files in %1. A program put there would run in every video call. Register anyway?")
              .arg(root.folder)
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.textc
        font.pixelSize: Theme.fsBody
    }

    Flow {
        width: parent.width
        layoutDirection: Qt.RightToLeft
        spacing: Theme.sp2

        AppButton {
            variant: "danger"
            text: qsTr("Register anyway")
            onClicked: {
                root.close() // first: the system's own question follows
                root.confirmed()
            }
        }

        AppButton {
            text: qsTr("Cancel")
            onClicked: root.close()
        }
    }
}
