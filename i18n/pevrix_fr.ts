<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en">
<context>
    <name>AboutTab</name>
    <message>
        <source>Turn your phone into a PC webcam</source>
        <translation>Faites de votre téléphone une webcam pour PC</translation>
    </message>
</context>
<context>
    <name>AddPhoneCard</name>
    <message>
        <source>Add phone</source>
        <translation>Ajouter</translation>
    </message>
</context>
<context>
    <name>AddPhoneDialog</name>
    <message>
        <source>Add a phone</source>
        <translation>Ajouter un téléphone</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app on another phone.</source>
        <translation>Scannez ce code avec l&apos;application Pevrix sur un autre téléphone.</translation>
    </message>
</context>
<context>
    <name>AddressRow</name>
    <message>
        <source>Can&apos;t scan?</source>
        <translation>Impossible de scanner ?</translation>
    </message>
</context>
<context>
    <name>Announcer</name>
    <message>
        <source>The camera is live</source>
        <translation>La caméra est en direct</translation>
    </message>
    <message>
        <source>The camera is paused</source>
        <translation>La caméra est en pause</translation>
    </message>
    <message>
        <source>Phone connected: %1</source>
        <translation>Téléphone connecté&#xa0;: %1</translation>
    </message>
    <message>
        <source>Phone disconnected: %1</source>
        <translation>Téléphone déconnecté&#xa0;: %1</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Enregistrement en cours</translation>
    </message>
    <message>
        <source>The recording has stopped by itself</source>
        <translation>L&apos;enregistrement s&apos;est arrêté de lui-même</translation>
    </message>
    <message>
        <source>Recording saved</source>
        <translation>Enregistrement terminé et conservé</translation>
    </message>
</context>
<context>
    <name>CameraTab</name>
    <message>
        <source>CAMERA</source>
        <translation>CAMÉRA</translation>
    </message>
    <message>
        <source>Registered</source>
        <translation>Inscrite</translation>
    </message>
    <message>
        <source>Not registered</source>
        <translation>Non inscrite</translation>
    </message>
    <message>
        <source>Unregister</source>
        <translation>Désinscrire</translation>
    </message>
    <message>
        <source>Register</source>
        <translation>Inscrire</translation>
    </message>
    <message>
        <source>Registering lets apps like Zoom, Teams and browsers see the Pevrix camera. Asks for admin.</source>
        <translation>L&apos;inscription permet aux applications comme Zoom ou Teams et aux navigateurs de voir la caméra Pevrix. Demande les droits d&apos;administrateur.</translation>
    </message>
    <message>
        <source>RECORDINGS</source>
        <translation>ENREGISTREMENTS</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Changer</translation>
    </message>
    <message>
        <source>Where the Record button saves .mp4 files.</source>
        <translation>Où le bouton Enregistrer place les fichiers .mp4.</translation>
    </message>
    <message>
        <source>PAIRING</source>
        <translation>ASSOCIATION</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Regenerate</source>
        <translation>Régénérer</translation>
    </message>
    <message>
        <source>Regenerating makes the current QR stop working for new phones.</source>
        <translation>Après régénération, le QR actuel ne fonctionne plus pour de nouveaux téléphones.</translation>
    </message>
    <message>
        <source>Choose recordings folder</source>
        <translation>Choisir le dossier des enregistrements</translation>
    </message>
    <message>
        <source>Unregister the camera</source>
        <translation>Désinscrire la caméra</translation>
    </message>
    <message>
        <source>Register the camera</source>
        <translation>Inscrire la caméra</translation>
    </message>
    <message>
        <source>Open the recordings folder</source>
        <translation>Ouvrir le dossier des enregistrements</translation>
    </message>
    <message>
        <source>Change the recordings folder</source>
        <translation>Changer le dossier des enregistrements</translation>
    </message>
    <message>
        <source>Regenerate the pairing code</source>
        <translation>Régénérer le code d&apos;association</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Edit</source>
        <translation>Édition</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Couper</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Tout sélectionner</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>APPEARANCE</source>
        <translation>APPARENCE</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Système</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Clair</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Sombre</translation>
    </message>
    <message>
        <source>LANGUAGE</source>
        <translation>LANGUE</translation>
    </message>
    <message>
        <source>Language: %1</source>
        <translation>Langue : %1</translation>
    </message>
    <message>
        <source>WINDOW</source>
        <translation>FENÊTRE</translation>
    </message>
    <message>
        <source>Close to tray</source>
        <translation>Fermer vers la zone de notification</translation>
    </message>
    <message>
        <source>Keep Pevrix running in the notification area when you close the window.</source>
        <translation>Pevrix continue de fonctionner dans la zone de notification quand vous fermez la fenêtre.</translation>
    </message>
</context>
<context>
    <name>InUseChip</name>
    <message>
        <source>In use</source>
        <translation>Utilisée</translation>
    </message>
</context>
<context>
    <name>LanguageDialog</name>
    <message>
        <source>Language</source>
        <translation>Langue</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>System default</source>
        <translation>Langue du système</translation>
    </message>
</context>
<context>
    <name>Modal</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>OutputChip</name>
    <message>
        <source>Pause camera</source>
        <translation>Mettre la caméra en pause</translation>
    </message>
    <message>
        <source>Resume camera</source>
        <translation>Reprendre la caméra</translation>
    </message>
</context>
<context>
    <name>PairingView</name>
    <message>
        <source>Phones cannot connect</source>
        <translation>Les téléphones ne peuvent pas se connecter</translation>
    </message>
    <message>
        <source>The Pevrix camera is missing, or another Pevrix uses it. Quit the other one or install Pevrix again, then start it anew.</source>
        <translation>La caméra Pevrix est absente, ou un autre Pevrix l&apos;utilise. Quittez l&apos;autre ou réinstallez Pevrix, puis relancez-le.</translation>
    </message>
    <message>
        <source>Windows is blocking Pevrix on this network</source>
        <translation>Windows bloque Pevrix sur ce réseau</translation>
    </message>
    <message>
        <source>Your phone cannot reach this PC until you allow it. Asks for admin.</source>
        <translation>Votre téléphone ne peut pas joindre ce PC sans votre autorisation. Demande les droits d&apos;administrateur.</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Autoriser</translation>
    </message>
    <message>
        <source>Ready to pair</source>
        <translation>Prêt à associer</translation>
    </message>
    <message>
        <source>Connect your phone</source>
        <translation>Connectez votre téléphone</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app. Keep your phone on the same Wi-Fi as this PC.</source>
        <translation>Scannez ce code avec l&apos;application Pevrix. Gardez votre téléphone sur le même Wi-Fi que ce PC.</translation>
    </message>
    <message>
        <source>This PC: %1</source>
        <translation>Ce PC : %1</translation>
    </message>
    <message>
        <source>Get the app</source>
        <translation>Obtenir l&apos;application</translation>
    </message>
</context>
<context>
    <name>PausedOverlay</name>
    <message>
        <source>Camera output paused</source>
        <translation>Sortie de la caméra en pause</translation>
    </message>
    <message>
        <source>Apps receive a frozen frame. Click Resume camera to broadcast again.</source>
        <translation>Les applications reçoivent une image figée. Cliquez sur Reprendre la caméra pour diffuser à nouveau.</translation>
    </message>
</context>
<context>
    <name>PreviewPanel</name>
    <message>
        <source>Live picture of the phone</source>
        <translation>Image en direct du téléphone</translation>
    </message>
</context>
<context>
    <name>QrCode</name>
    <message>
        <source>Pairing code</source>
        <translation>Code d&apos;association</translation>
    </message>
</context>
<context>
    <name>RecordButton</name>
    <message>
        <source>Stop recording</source>
        <translation>Arrêter l&apos;enregistrement</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Enregistrer</translation>
    </message>
</context>
<context>
    <name>RenameButton</name>
    <message>
        <source>Rename %1</source>
        <translation>Renommer %1</translation>
    </message>
</context>
<context>
    <name>RenameField</name>
    <message>
        <source>Name of the phone</source>
        <translation>Nom du téléphone</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Caméra</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>État</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
</context>
<context>
    <name>StatusTab</name>
    <message>
        <source>CONNECTION</source>
        <translation>CONNEXION</translation>
    </message>
    <message>
        <source>This PC</source>
        <translation>Ce PC</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Prêt</translation>
    </message>
    <message>
        <source>Needs iTunes or the Apple Devices app</source>
        <translation>Nécessite iTunes ou l&apos;app Appareils Apple</translation>
    </message>
    <message>
        <source>DIAGNOSTICS</source>
        <translation>DIAGNOSTIC</translation>
    </message>
    <message>
        <source>Performance</source>
        <translation>Performances</translation>
    </message>
    <message>
        <source>%1 fps · %2 ms</source>
        <translation>%1 i/s · %2 ms</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurer</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Agrandir</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Pevrix %1 is available.</source>
        <translation>Pevrix %1 est disponible.</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Télécharger</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Ignorer</translation>
    </message>
</context>
<context>
    <name>tray</name>
    <message>
        <source>Show Pevrix</source>
        <translation>Afficher Pevrix</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Pevrix - in use by an app</source>
        <translation>Pevrix - utilisé par une application</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Reprendre</translation>
    </message>
    <message>
        <source>Pevrix is still running</source>
        <translation>Pevrix continue de fonctionner</translation>
    </message>
    <message>
        <source>Click its icon to bring the window back. &quot;Quit&quot; in its menu ends it.</source>
        <translation>Cliquez sur son icône pour retrouver la fenêtre. «&#xa0;Quitter&#xa0;», dans son menu, ferme le programme.</translation>
    </message>
</context>
</TS>
