pragma ComponentBehavior: Bound

import QtQuick

// The window's own title bar: moves the window, and holds the buttons of a native one.
Rectangle {
    id: root

    required property bool maximized
    required property real topRadius

    signal settingsClicked()
    signal minimizeClicked()
    signal maximizeToggled()
    signal closeClicked()
    /// The pointer began to drag at `point` of this bar, which is at `global` on the screen.
    signal dragStarted(point point, point global)
    signal dragEnded()

    implicitHeight: 46
    topLeftRadius: topRadius
    topRightRadius: topRadius
    color: Theme.raised

    MouseArea {
        property point pressed
        property bool dragging: false
        readonly property int threshold: 4

        anchors.fill: parent
        onPressed: mouse => {
            pressed = Qt.point(mouse.x, mouse.y)
            dragging = false
        }
        onPositionChanged: mouse => {
            const far = Math.max(Math.abs(mouse.x - pressed.x), Math.abs(mouse.y - pressed.y))
            if (!dragging && far > threshold) {
                dragging = true
                root.dragStarted(Qt.point(mouse.x, mouse.y), mapToGlobal(mouse.x, mouse.y))
            }
        }
        onReleased: root.dragEnded()
        onCanceled: root.dragEnded()
        onDoubleClicked: root.maximizeToggled()
    }

    Row {
        anchors { left: parent.left; leftMargin: 14; verticalCenter: parent.verticalCenter }
        spacing: 10

        // Of about its size: a large picture with mipmaps would take a tenth of the window's first frame.
        Image {
            readonly property int side: Math.ceil(width * Math.max(2, Screen.devicePixelRatio))

            anchors.verticalCenter: parent.verticalCenter
            width: 22
            height: 22
            source: "qrc:/assets/icons/app-icon-64.png"
            sourceSize: Qt.size(side, side)
            smooth: true
        }

        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: "Pevrix"
            color: Theme.textc
            font.pixelSize: Theme.fsBtnLg
            font.weight: Font.DemiBold
        }
    }

    Row {
        anchors { right: parent.right; rightMargin: 8; verticalCenter: parent.verticalCenter }
        spacing: 2

        TitleButton {
            objectName: "settingsButton"
            name: qsTr("Settings")
            onClicked: root.settingsClicked()

            contentItem: SettingsGlyph {}
        }

        TitleButton {
            name: qsTr("Minimize")
            onClicked: root.minimizeClicked()

            contentItem: Item {
                Rectangle {
                    anchors.centerIn: parent
                    width: 11
                    height: 1
                    color: Theme.muted
                }
            }
        }

        TitleButton {
            name: root.maximized ? qsTr("Restore") : qsTr("Maximize")
            onClicked: root.maximizeToggled()

            contentItem: MaximizeGlyph { maximized: root.maximized }
        }

        TitleButton {
            name: qsTr("Close")
            onClicked: root.closeClicked()

            contentItem: CrossGlyph { color: Theme.muted }
        }
    }

    Rectangle {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        height: 1
        color: Theme.hair
    }
}
