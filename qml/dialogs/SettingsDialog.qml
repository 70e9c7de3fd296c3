import QtQuick

// All settings, on four tabs. It always opens on the first. As tall as its tallest tab, so that
// changing the tab does not move anything.
Modal {
    id: root

    readonly property alias choosing: camera.choosing
    required property string languageName
    required property string homeUrl
    property int tab: 0

    signal languageClicked()

    title: qsTr("Settings")
    panelWidth: 400
    bodySpacing: Theme.sp4

    onShownChanged: if (shown) {
        tab = 0
    }

    SegmentedBar {
        width: parent.width
        labels: [qsTr("General"), qsTr("Camera"), qsTr("Status"), qsTr("About")]
        current: root.tab
        tabs: true
        onPicked: index => root.tab = index
    }

    Item {
        width: parent.width
        height: Math.max(general.height, camera.height, status.height, about.implicitHeight)

        GeneralTab {
            id: general

            width: parent.width
            visible: root.tab === 0
            languageName: root.languageName
            onLanguageClicked: root.languageClicked()
        }

        CameraTab {
            id: camera

            width: parent.width
            visible: root.tab === 1
        }

        StatusTab {
            id: status

            width: parent.width
            visible: root.tab === 2
        }

        AboutTab {
            id: about

            anchors.fill: parent
            visible: root.tab === 3
            version: App.appVersion
            homeUrl: root.homeUrl
        }
    }
}
