pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// What every control is made of: click, Enter and Space, Tab with a focus ring, the pointing hand.
// Its look is the control's own. Dynamic names belong into Accessible.name and not into `text`,
// where an ampersand would become a shortcut.
T.AbstractButton {
    id: root

    property real ringRadius: Theme.rControl // the control's own corner radius
    property real ringGap: 1                 // negative: the ring lies inside, where a view clips

    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: click()
    Accessible.onToggleAction: click()

    Keys.onReturnPressed: event => clickOnce(event)
    Keys.onEnterPressed: event => clickOnce(event)

    function clickOnce(event: KeyEvent): void {
        if (!event.isAutoRepeat) {
            click()
        }
    }

    HoverHandler {
        cursorShape: root.enabled ? Qt.PointingHandCursor : Qt.ArrowCursor
    }

    Loader {
        anchors.fill: parent
        z: 1
        active: root.visualFocus
        sourceComponent: FocusRing {
            cornerRadius: root.ringRadius
            gap: root.ringGap
        }
    }
}
