pragma ComponentBehavior: Bound

import QtQuick

// The dialogs over the window's card. Each is made when it is opened for the first time.
Item {
    id: root

    required property Main window // that they belong to
    readonly property bool anyShown: settings.shown || language.shown || addPhone.shown
                                     || registration.shown

    Connections {
        target: root.window

        function onDialogAsked(name: string): void {
            switch (name) {
            case "settings": settings.open(); break
            case "recordings": settings.openOn(1); break
            case "language": language.open(); break
            case "addphone": addPhone.open(); break
            }
        }

        function onRegistrationAsked(folder: string): void {
            registration.open()
            const dialog = registration.item as RegistrationDialog
            dialog.folder = folder
        }
    }

    LazyDialog {
        id: settings

        function openOn(tab: int): void {
            open()
            const dialog = item as SettingsDialog
            dialog.tab = tab
        }

        sourceComponent: SettingsDialog {
            objectName: "settings"
            theme: root.window
            covered: registration.shown || choosing
            homeUrl: App.siteUrl
            languageName: Languages.nameOf(App.language)
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
            current: App.language
            onPicked: code => App.setLanguage(code)
        }
    }

    LazyDialog {
        id: addPhone

        sourceComponent: AddPhoneDialog {
            objectName: "addPhone"
            theme: root.window
            qrDataUrl: App.qrDataUrl
            pairAddress: App.pairAddress
        }
    }

    LazyDialog {
        id: registration

        sourceComponent: RegistrationDialog {
            objectName: "registration"
            theme: root.window
            onConfirmed: App.registerCamera()
        }
    }
}
