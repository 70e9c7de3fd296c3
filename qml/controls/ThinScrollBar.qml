import QtQuick
import QtQuick.Templates as T

// The scroll bar of dialogs and views.
T.ScrollBar {
    id: root

    implicitWidth: 10
    padding: 2
    visible: size < 1
    policy: T.ScrollBar.AlwaysOn
    minimumSize: 0.1

    contentItem: Item {
        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            width: root.hovered || root.pressed ? 6 : 4
            height: parent.height
            radius: width / 2
            color: root.pressed ? Theme.muted : Theme.hair

            Behavior on width { enabled: !Motion.still; NumberAnimation { duration: 120 } }
            Behavior on color { enabled: !Motion.still; ColorAnimation { duration: 120 } }
        }
    }
}
