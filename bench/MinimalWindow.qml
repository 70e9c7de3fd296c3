import QtQuick

// The least that a program with a window of Qt Quick is.
Window {
    width: 540
    height: 640
    visible: true

    Text {
        anchors.centerIn: parent
        text: "Hello"
    }
}
