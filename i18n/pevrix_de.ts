<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>AboutTab</name>
    <message>
        <source>Turn your phone into a PC webcam</source>
        <translation>Machen Sie Ihr Telefon zur PC-Webcam</translation>
    </message>
</context>
<context>
    <name>AddPhoneCard</name>
    <message>
        <source>Add phone</source>
        <translation>Hinzufügen</translation>
    </message>
</context>
<context>
    <name>AddPhoneDialog</name>
    <message>
        <source>Add a phone</source>
        <translation>Telefon hinzufügen</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app on another phone.</source>
        <translation>Scannen Sie diesen Code mit der Pevrix-App auf einem weiteren Telefon.</translation>
    </message>
</context>
<context>
    <name>AddressRow</name>
    <message>
        <source>Can&apos;t scan?</source>
        <translation>Scannen klappt nicht?</translation>
    </message>
</context>
<context>
    <name>Announcer</name>
    <message>
        <source>The camera is live</source>
        <translation>Die Kamera sendet live</translation>
    </message>
    <message>
        <source>The camera is paused</source>
        <translation>Die Kamera ist pausiert</translation>
    </message>
    <message>
        <source>Phone connected: %1</source>
        <translation>Telefon verbunden: %1</translation>
    </message>
    <message>
        <source>Phone disconnected: %1</source>
        <translation>Telefon getrennt: %1</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufnahme läuft</translation>
    </message>
    <message>
        <source>The recording has stopped by itself</source>
        <translation>Die Aufnahme wurde von selbst beendet</translation>
    </message>
    <message>
        <source>Recording saved</source>
        <translation>Aufnahme gespeichert</translation>
    </message>
</context>
<context>
    <name>CameraTab</name>
    <message>
        <source>CAMERA</source>
        <translation>KAMERA</translation>
    </message>
    <message>
        <source>Registered</source>
        <translation>Registriert</translation>
    </message>
    <message>
        <source>Not registered</source>
        <translation>Nicht registriert</translation>
    </message>
    <message>
        <source>Unregister</source>
        <translation>Registrierung aufheben</translation>
    </message>
    <message>
        <source>Register</source>
        <translation>Registrieren</translation>
    </message>
    <message>
        <source>Registering lets apps like Zoom, Teams and browsers see the Pevrix camera. Asks for admin.</source>
        <translation>Nach dem Registrieren sehen Apps wie Zoom und Teams sowie Browser die Pevrix-Kamera. Erfordert Administratorrechte.</translation>
    </message>
    <message>
        <source>RECORDINGS</source>
        <translation>AUFNAHMEN</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Ändern</translation>
    </message>
    <message>
        <source>Where the Record button saves .mp4 files.</source>
        <translation>Hier speichert die Schaltfläche Aufnehmen die .mp4-Dateien.</translation>
    </message>
    <message>
        <source>PAIRING</source>
        <translation>KOPPLUNG</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Regenerate</source>
        <translation>Neu erzeugen</translation>
    </message>
    <message>
        <source>Regenerating makes the current QR stop working for new phones.</source>
        <translation>Danach gilt der bisherige QR-Code für neue Telefone nicht mehr.</translation>
    </message>
    <message>
        <source>Choose recordings folder</source>
        <translation>Ordner für Aufnahmen wählen</translation>
    </message>
    <message>
        <source>Unregister the camera</source>
        <translation>Registrierung der Kamera aufheben</translation>
    </message>
    <message>
        <source>Register the camera</source>
        <translation>Kamera registrieren</translation>
    </message>
    <message>
        <source>Open the recordings folder</source>
        <translation>Ordner für Aufnahmen öffnen</translation>
    </message>
    <message>
        <source>Change the recordings folder</source>
        <translation>Ordner für Aufnahmen ändern</translation>
    </message>
    <message>
        <source>Regenerate the pairing code</source>
        <translation>Kopplungscode neu erzeugen</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Alles auswählen</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>APPEARANCE</source>
        <translation>DARSTELLUNG</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>LANGUAGE</source>
        <translation>SPRACHE</translation>
    </message>
    <message>
        <source>Language: %1</source>
        <translation>Sprache: %1</translation>
    </message>
    <message>
        <source>WINDOW</source>
        <translation>FENSTER</translation>
    </message>
    <message>
        <source>Close to tray</source>
        <translation>In den Infobereich schließen</translation>
    </message>
    <message>
        <source>Keep Pevrix running in the notification area when you close the window.</source>
        <translation>Pevrix läuft im Infobereich weiter, wenn Sie das Fenster schließen.</translation>
    </message>
</context>
<context>
    <name>InUseChip</name>
    <message>
        <source>In use</source>
        <translation>In Gebrauch</translation>
    </message>
</context>
<context>
    <name>LanguageDialog</name>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>System default</source>
        <translation>Systemsprache</translation>
    </message>
</context>
<context>
    <name>Modal</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>OutputChip</name>
    <message>
        <source>Pause camera</source>
        <translation>Kamera pausieren</translation>
    </message>
    <message>
        <source>Resume camera</source>
        <translation>Kamera fortsetzen</translation>
    </message>
</context>
<context>
    <name>PairingView</name>
    <message>
        <source>Phones cannot connect</source>
        <translation>Telefone können sich nicht verbinden</translation>
    </message>
    <message>
        <source>The Pevrix camera is missing, or another Pevrix uses it. Quit the other one or install Pevrix again, then start it anew.</source>
        <translation>Die Pevrix-Kamera fehlt, oder ein anderes Pevrix verwendet sie. Beenden Sie das andere oder installieren Sie Pevrix neu, und starten Sie es dann noch einmal.</translation>
    </message>
    <message>
        <source>Windows is blocking Pevrix on this network</source>
        <translation>Windows blockiert Pevrix in diesem Netzwerk</translation>
    </message>
    <message>
        <source>Your phone cannot reach this PC until you allow it. Asks for admin.</source>
        <translation>Ihr Telefon erreicht diesen PC erst, wenn Sie es zulassen. Erfordert Administratorrechte.</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Zulassen</translation>
    </message>
    <message>
        <source>Ready to pair</source>
        <translation>Bereit zum Koppeln</translation>
    </message>
    <message>
        <source>Connect your phone</source>
        <translation>Verbinden Sie Ihr Telefon</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app. Keep your phone on the same Wi-Fi as this PC.</source>
        <translation>Scannen Sie diesen Code mit der Pevrix-App. Das Telefon muss im selben WLAN sein wie dieser PC.</translation>
    </message>
    <message>
        <source>This PC: %1</source>
        <translation>Dieser PC: %1</translation>
    </message>
    <message>
        <source>Get the app</source>
        <translation>App herunterladen</translation>
    </message>
</context>
<context>
    <name>PausedOverlay</name>
    <message>
        <source>Camera output paused</source>
        <translation>Kameraausgabe pausiert</translation>
    </message>
    <message>
        <source>Apps receive a frozen frame. Click Resume camera to broadcast again.</source>
        <translation>Apps erhalten ein Standbild. Klicken Sie auf Kamera fortsetzen, um wieder zu senden.</translation>
    </message>
</context>
<context>
    <name>PreviewPanel</name>
    <message>
        <source>Live picture of the phone</source>
        <translation>Livebild des Telefons</translation>
    </message>
</context>
<context>
    <name>QrCode</name>
    <message>
        <source>Pairing code</source>
        <translation>Kopplungscode</translation>
    </message>
</context>
<context>
    <name>RecordButton</name>
    <message>
        <source>Stop recording</source>
        <translation>Aufnahme beenden</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufnehmen</translation>
    </message>
</context>
<context>
    <name>RenameButton</name>
    <message>
        <source>Rename %1</source>
        <translation>%1 umbenennen</translation>
    </message>
</context>
<context>
    <name>RenameField</name>
    <message>
        <source>Name of the phone</source>
        <translation>Name des Telefons</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
</context>
<context>
    <name>StatusTab</name>
    <message>
        <source>CONNECTION</source>
        <translation>VERBINDUNG</translation>
    </message>
    <message>
        <source>This PC</source>
        <translation>Dieser PC</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>Needs iTunes or the Apple Devices app</source>
        <translation>Benötigt iTunes oder die App Apple-Geräte</translation>
    </message>
    <message>
        <source>DIAGNOSTICS</source>
        <translation>DIAGNOSE</translation>
    </message>
    <message>
        <source>Performance</source>
        <translation>Leistung</translation>
    </message>
    <message>
        <source>%1 fps · %2 ms</source>
        <translation>%1 fps · %2 ms</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Pevrix %1 is available.</source>
        <translation>Pevrix %1 ist verfügbar.</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Ausblenden</translation>
    </message>
</context>
<context>
    <name>tray</name>
    <message>
        <source>Show Pevrix</source>
        <translation>Pevrix anzeigen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Pevrix - in use by an app</source>
        <translation>Pevrix – von einer App verwendet</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausieren</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>Pevrix is still running</source>
        <translation>Pevrix läuft weiter</translation>
    </message>
    <message>
        <source>Click its icon to bring the window back. &quot;Quit&quot; in its menu ends it.</source>
        <translation>Ein Klick auf das Symbol holt das Fenster zurück. „Beenden“ im Menü des Symbols beendet Pevrix.</translation>
    </message>
</context>
</TS>
