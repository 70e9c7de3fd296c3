pragma ComponentBehavior: Bound

import QtQuick

// The dialogs over the window's card. Each is made when it is opened for the first time.
Item {
    id: root

    required property Main window // that they belong to

    readonly property var app: window.controller
    readonly property var translator: window.translator
    readonly property var updates: window.updates
    // The translator ends before the engine does.
    readonly property string languageCode: translator?.language ?? ""

    Connections {
        target: root.window

        function onDialogAsked(name: string): void {
            switch (name) {
            case "settings": settings.open(); break
            case "language": language.open(); break
            case "addphone": addPhone.open(); break
            }
        }
    }

    LazyDialog {
        id: settings

        sourceComponent: SettingsDialog {
            objectName: "settings"
            theme: root.window
            app: root.app
            homeUrl: root.updates.siteUrl
            languageName: Languages.nameOf(root.languageCode)
            onLanguageClicked: {
                close()
                language.open()
            }
        }
    }

    LazyDialog {
        id: language

        sourceComponent: LanguageDialog {
            objectName: "language"
            theme: root.window
            current: root.languageCode
            onPicked: code => root.translator.setLanguage(code)
        }
    }

    LazyDialog {
        id: addPhone

        sourceComponent: AddPhoneDialog {
            objectName: "addPhone"
            theme: root.window
            qrDataUrl: root.app.qrDataUrl
            pairAddress: root.app.pairAddress
        }
    }
}
