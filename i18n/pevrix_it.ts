<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it_IT" sourcelanguage="en">
<context>
    <name>AboutTab</name>
    <message>
        <source>Turn your phone into a PC webcam</source>
        <translation>Trasforma il telefono in una webcam per PC</translation>
    </message>
</context>
<context>
    <name>AddPhoneCard</name>
    <message>
        <source>Add phone</source>
        <translation>Aggiungi</translation>
    </message>
</context>
<context>
    <name>AddPhoneDialog</name>
    <message>
        <source>Add a phone</source>
        <translation>Aggiungi un telefono</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app on another phone.</source>
        <translation>Scansiona questo codice con l&apos;app Pevrix su un altro telefono.</translation>
    </message>
</context>
<context>
    <name>AddressRow</name>
    <message>
        <source>Can&apos;t scan?</source>
        <translation>Non riesci a scansionare?</translation>
    </message>
</context>
<context>
    <name>Announcer</name>
    <message>
        <source>The camera is live</source>
        <translation>La fotocamera è in diretta</translation>
    </message>
    <message>
        <source>The camera is paused</source>
        <translation>La fotocamera è in pausa</translation>
    </message>
    <message>
        <source>Phone connected: %1</source>
        <translation>Telefono connesso: %1</translation>
    </message>
    <message>
        <source>Phone disconnected: %1</source>
        <translation>Telefono disconnesso: %1</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Registrazione in corso</translation>
    </message>
    <message>
        <source>The recording has stopped by itself</source>
        <translation>La registrazione si è interrotta da sola</translation>
    </message>
    <message>
        <source>Recording saved</source>
        <translation>Registrazione salvata</translation>
    </message>
</context>
<context>
    <name>CameraTab</name>
    <message>
        <source>CAMERA</source>
        <translation>FOTOCAMERA</translation>
    </message>
    <message>
        <source>Registered</source>
        <translation>Registrata</translation>
    </message>
    <message>
        <source>Not registered</source>
        <translation>Non registrata</translation>
    </message>
    <message>
        <source>Unregister</source>
        <translation>Annulla registrazione</translation>
    </message>
    <message>
        <source>Register</source>
        <translation>Registra</translation>
    </message>
    <message>
        <source>Registering lets apps like Zoom, Teams and browsers see the Pevrix camera. Asks for admin.</source>
        <translation>La registrazione rende la fotocamera Pevrix visibile ad app come Zoom e Teams e ai browser. Richiede i diritti di amministratore.</translation>
    </message>
    <message>
        <source>RECORDINGS</source>
        <translation>REGISTRAZIONI</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Apri</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Cambia</translation>
    </message>
    <message>
        <source>Where the Record button saves .mp4 files.</source>
        <translation>Dove il pulsante Registra salva i file .mp4.</translation>
    </message>
    <message>
        <source>PAIRING</source>
        <translation>ASSOCIAZIONE</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Codice</translation>
    </message>
    <message>
        <source>Regenerate</source>
        <translation>Rigenera</translation>
    </message>
    <message>
        <source>Regenerating makes the current QR stop working for new phones.</source>
        <translation>Dopo la rigenerazione il QR attuale non vale più per nuovi telefoni.</translation>
    </message>
    <message>
        <source>Choose recordings folder</source>
        <translation>Scegli la cartella delle registrazioni</translation>
    </message>
    <message>
        <source>Unregister the camera</source>
        <translation>Annulla registrazione della fotocamera</translation>
    </message>
    <message>
        <source>Register the camera</source>
        <translation>Registra la fotocamera</translation>
    </message>
    <message>
        <source>Open the recordings folder</source>
        <translation>Apri la cartella delle registrazioni</translation>
    </message>
    <message>
        <source>Change the recordings folder</source>
        <translation>Cambia la cartella delle registrazioni</translation>
    </message>
    <message>
        <source>Regenerate the pairing code</source>
        <translation>Rigenera il codice di associazione</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Edit</source>
        <translation>Modifica</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Taglia</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copia</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Incolla</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Seleziona tutto</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>APPEARANCE</source>
        <translation>ASPETTO</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Sistema</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Chiaro</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Scuro</translation>
    </message>
    <message>
        <source>LANGUAGE</source>
        <translation>LINGUA</translation>
    </message>
    <message>
        <source>Language: %1</source>
        <translation>Lingua: %1</translation>
    </message>
    <message>
        <source>WINDOW</source>
        <translation>FINESTRA</translation>
    </message>
    <message>
        <source>Close to tray</source>
        <translation>Chiudi nell&apos;area di notifica</translation>
    </message>
    <message>
        <source>Keep Pevrix running in the notification area when you close the window.</source>
        <translation>Pevrix resta in esecuzione nell&apos;area di notifica quando chiudi la finestra.</translation>
    </message>
</context>
<context>
    <name>InUseChip</name>
    <message>
        <source>In use</source>
        <translation>In uso</translation>
    </message>
</context>
<context>
    <name>LanguageDialog</name>
    <message>
        <source>Language</source>
        <translation>Lingua</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>System default</source>
        <translation>Lingua di sistema</translation>
    </message>
</context>
<context>
    <name>Modal</name>
    <message>
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
</context>
<context>
    <name>OutputChip</name>
    <message>
        <source>Pause camera</source>
        <translation>Metti in pausa la fotocamera</translation>
    </message>
    <message>
        <source>Resume camera</source>
        <translation>Riprendi la fotocamera</translation>
    </message>
</context>
<context>
    <name>PairingView</name>
    <message>
        <source>Phones cannot connect</source>
        <translation>I telefoni non possono connettersi</translation>
    </message>
    <message>
        <source>The Pevrix camera is missing, or another Pevrix uses it. Quit the other one or install Pevrix again, then start it anew.</source>
        <translation>La fotocamera Pevrix manca, oppure la usa un altro Pevrix. Esci dall&apos;altro o reinstalla Pevrix, poi riavvialo.</translation>
    </message>
    <message>
        <source>Windows is blocking Pevrix on this network</source>
        <translation>Windows blocca Pevrix su questa rete</translation>
    </message>
    <message>
        <source>Your phone cannot reach this PC until you allow it. Asks for admin.</source>
        <translation>Il telefono non può raggiungere questo PC finché non lo consenti. Richiede i diritti di amministratore.</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Consenti</translation>
    </message>
    <message>
        <source>Ready to pair</source>
        <translation>Pronto per l&apos;associazione</translation>
    </message>
    <message>
        <source>Connect your phone</source>
        <translation>Collega il telefono</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app. Keep your phone on the same Wi-Fi as this PC.</source>
        <translation>Scansiona questo codice con l&apos;app Pevrix. Il telefono deve essere sulla stessa rete Wi-Fi di questo PC.</translation>
    </message>
    <message>
        <source>This PC: %1</source>
        <translation>Questo PC: %1</translation>
    </message>
    <message>
        <source>Get the app</source>
        <translation>Scarica l&apos;app</translation>
    </message>
</context>
<context>
    <name>PausedOverlay</name>
    <message>
        <source>Camera output paused</source>
        <translation>Uscita della fotocamera in pausa</translation>
    </message>
    <message>
        <source>Apps receive a frozen frame. Click Resume camera to broadcast again.</source>
        <translation>Le app ricevono un&apos;immagine fissa. Fai clic su Riprendi la fotocamera per trasmettere di nuovo.</translation>
    </message>
</context>
<context>
    <name>PreviewPanel</name>
    <message>
        <source>Live picture of the phone</source>
        <translation>Immagine dal vivo del telefono</translation>
    </message>
</context>
<context>
    <name>QrCode</name>
    <message>
        <source>Pairing code</source>
        <translation>Codice di associazione</translation>
    </message>
</context>
<context>
    <name>RecordButton</name>
    <message>
        <source>Stop recording</source>
        <translation>Interrompi la registrazione</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Registra</translation>
    </message>
</context>
<context>
    <name>RenameButton</name>
    <message>
        <source>Rename %1</source>
        <translation>Rinomina %1</translation>
    </message>
</context>
<context>
    <name>RenameField</name>
    <message>
        <source>Name of the phone</source>
        <translation>Nome del telefono</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Impostazioni</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Generale</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Fotocamera</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Stato</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
</context>
<context>
    <name>StatusTab</name>
    <message>
        <source>CONNECTION</source>
        <translation>CONNESSIONE</translation>
    </message>
    <message>
        <source>This PC</source>
        <translation>Questo PC</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Porta</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Pronto</translation>
    </message>
    <message>
        <source>Needs iTunes or the Apple Devices app</source>
        <translation>Richiede iTunes o l&apos;app Dispositivi Apple</translation>
    </message>
    <message>
        <source>DIAGNOSTICS</source>
        <translation>DIAGNOSTICA</translation>
    </message>
    <message>
        <source>Performance</source>
        <translation>Prestazioni</translation>
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
        <translation>Impostazioni</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Riduci a icona</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Ripristina</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Ingrandisci</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Pevrix %1 is available.</source>
        <translation>È disponibile Pevrix %1.</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Scarica</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Ignora</translation>
    </message>
</context>
<context>
    <name>tray</name>
    <message>
        <source>Show Pevrix</source>
        <translation>Mostra Pevrix</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Esci</translation>
    </message>
    <message>
        <source>Pevrix - in use by an app</source>
        <translation>Pevrix - in uso da un&apos;app</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Riprendi</translation>
    </message>
    <message>
        <source>Pevrix is still running</source>
        <translation>Pevrix è ancora in esecuzione</translation>
    </message>
    <message>
        <source>Click its icon to bring the window back. &quot;Quit&quot; in its menu ends it.</source>
        <translation>Fai clic sulla sua icona per riaprire la finestra. Per chiuderlo del tutto, scegli «Esci» dal menu dell’icona.</translation>
    </message>
</context>
</TS>
