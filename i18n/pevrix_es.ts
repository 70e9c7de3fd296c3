<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en">
<context>
    <name>AboutTab</name>
    <message>
        <source>Turn your phone into a PC webcam</source>
        <translation>Convierte tu teléfono en una webcam para el PC</translation>
    </message>
</context>
<context>
    <name>AddPhoneCard</name>
    <message>
        <source>Add phone</source>
        <translation>Añadir teléfono</translation>
    </message>
</context>
<context>
    <name>AddPhoneDialog</name>
    <message>
        <source>Add a phone</source>
        <translation>Añadir un teléfono</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app on another phone.</source>
        <translation>Escanea este código con la aplicación Pevrix en otro teléfono.</translation>
    </message>
</context>
<context>
    <name>AddressRow</name>
    <message>
        <source>Can&apos;t scan?</source>
        <translation>¿No puedes escanear?</translation>
    </message>
</context>
<context>
    <name>Announcer</name>
    <message>
        <source>The camera is live</source>
        <translation>La cámara está en directo</translation>
    </message>
    <message>
        <source>The camera is paused</source>
        <translation>La cámara está en pausa</translation>
    </message>
    <message>
        <source>Phone connected: %1</source>
        <translation>Teléfono conectado: %1</translation>
    </message>
    <message>
        <source>Phone disconnected: %1</source>
        <translation>Teléfono desconectado: %1</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Grabando</translation>
    </message>
    <message>
        <source>The recording has stopped by itself</source>
        <translation>La grabación se ha detenido sola</translation>
    </message>
    <message>
        <source>Recording saved</source>
        <translation>Grabación guardada</translation>
    </message>
</context>
<context>
    <name>CameraTab</name>
    <message>
        <source>CAMERA</source>
        <translation>CÁMARA</translation>
    </message>
    <message>
        <source>Registered</source>
        <translation>Registrada</translation>
    </message>
    <message>
        <source>Not registered</source>
        <translation>No registrada</translation>
    </message>
    <message>
        <source>Unregister</source>
        <translation>Anular registro</translation>
    </message>
    <message>
        <source>Register</source>
        <translation>Registrar</translation>
    </message>
    <message>
        <source>Registering lets apps like Zoom, Teams and browsers see the Pevrix camera. Asks for admin.</source>
        <translation>Al registrarla, las aplicaciones como Zoom o Teams y los navegadores ven la cámara Pevrix. Pide permisos de administrador.</translation>
    </message>
    <message>
        <source>RECORDINGS</source>
        <translation>GRABACIONES</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Cambiar</translation>
    </message>
    <message>
        <source>Where the Record button saves .mp4 files.</source>
        <translation>Donde el botón Grabar guarda los archivos .mp4.</translation>
    </message>
    <message>
        <source>PAIRING</source>
        <translation>VINCULACIÓN</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Código</translation>
    </message>
    <message>
        <source>Regenerate</source>
        <translation>Regenerar</translation>
    </message>
    <message>
        <source>Regenerating makes the current QR stop working for new phones.</source>
        <translation>Al regenerarlo, el QR actual deja de servir para teléfonos nuevos.</translation>
    </message>
    <message>
        <source>Choose recordings folder</source>
        <translation>Elegir la carpeta de grabaciones</translation>
    </message>
    <message>
        <source>Unregister the camera</source>
        <translation>Anular registro de la cámara</translation>
    </message>
    <message>
        <source>Register the camera</source>
        <translation>Registrar la cámara</translation>
    </message>
    <message>
        <source>Open the recordings folder</source>
        <translation>Abrir la carpeta de grabaciones</translation>
    </message>
    <message>
        <source>Change the recordings folder</source>
        <translation>Cambiar la carpeta de grabaciones</translation>
    </message>
    <message>
        <source>Regenerate the pairing code</source>
        <translation>Regenerar el código de vinculación</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Edit</source>
        <translation>Edición</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Cortar</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Pegar</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Seleccionar todo</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>APPEARANCE</source>
        <translation>APARIENCIA</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Sistema</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Claro</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Oscuro</translation>
    </message>
    <message>
        <source>LANGUAGE</source>
        <translation>IDIOMA</translation>
    </message>
    <message>
        <source>Language: %1</source>
        <translation>Idioma: %1</translation>
    </message>
    <message>
        <source>WINDOW</source>
        <translation>VENTANA</translation>
    </message>
    <message>
        <source>Close to tray</source>
        <translation>Cerrar a la bandeja</translation>
    </message>
    <message>
        <source>Keep Pevrix running in the notification area when you close the window.</source>
        <translation>Pevrix sigue funcionando en el área de notificación al cerrar la ventana.</translation>
    </message>
</context>
<context>
    <name>InUseChip</name>
    <message>
        <source>In use</source>
        <translation>En uso</translation>
    </message>
</context>
<context>
    <name>LanguageDialog</name>
    <message>
        <source>Language</source>
        <translation>Idioma</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>System default</source>
        <translation>Idioma del sistema</translation>
    </message>
</context>
<context>
    <name>Modal</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>OutputChip</name>
    <message>
        <source>Pause camera</source>
        <translation>Pausar la cámara</translation>
    </message>
    <message>
        <source>Resume camera</source>
        <translation>Reanudar la cámara</translation>
    </message>
</context>
<context>
    <name>PairingView</name>
    <message>
        <source>Phones cannot connect</source>
        <translation>Los teléfonos no pueden conectarse</translation>
    </message>
    <message>
        <source>The Pevrix camera is missing, or another Pevrix uses it. Quit the other one or install Pevrix again, then start it anew.</source>
        <translation>Falta la cámara de Pevrix, o la está usando otro Pevrix. Cierre el otro o vuelva a instalar Pevrix, y después ábralo de nuevo.</translation>
    </message>
    <message>
        <source>Windows is blocking Pevrix on this network</source>
        <translation>Windows bloquea Pevrix en esta red</translation>
    </message>
    <message>
        <source>Your phone cannot reach this PC until you allow it. Asks for admin.</source>
        <translation>El teléfono no puede llegar a este PC hasta que lo permitas. Pide permisos de administrador.</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Permitir</translation>
    </message>
    <message>
        <source>Ready to pair</source>
        <translation>Listo para vincular</translation>
    </message>
    <message>
        <source>Connect your phone</source>
        <translation>Conecta tu teléfono</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app. Keep your phone on the same Wi-Fi as this PC.</source>
        <translation>Escanea este código con la aplicación Pevrix. El teléfono debe estar en la misma red Wi-Fi que este PC.</translation>
    </message>
    <message>
        <source>This PC: %1</source>
        <translation>Este PC: %1</translation>
    </message>
    <message>
        <source>Get the app</source>
        <translation>Obtener la aplicación</translation>
    </message>
</context>
<context>
    <name>PausedOverlay</name>
    <message>
        <source>Camera output paused</source>
        <translation>Salida de la cámara en pausa</translation>
    </message>
    <message>
        <source>Apps receive a frozen frame. Click Resume camera to broadcast again.</source>
        <translation>Las aplicaciones reciben una imagen congelada. Haz clic en Reanudar la cámara para volver a emitir.</translation>
    </message>
</context>
<context>
    <name>PreviewPanel</name>
    <message>
        <source>Live picture of the phone</source>
        <translation>Imagen en directo del teléfono</translation>
    </message>
</context>
<context>
    <name>QrCode</name>
    <message>
        <source>Pairing code</source>
        <translation>Código de vinculación</translation>
    </message>
</context>
<context>
    <name>RecordButton</name>
    <message>
        <source>Stop recording</source>
        <translation>Detener la grabación</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Grabar</translation>
    </message>
</context>
<context>
    <name>RenameButton</name>
    <message>
        <source>Rename %1</source>
        <translation>Cambiar el nombre de %1</translation>
    </message>
</context>
<context>
    <name>RenameField</name>
    <message>
        <source>Name of the phone</source>
        <translation>Nombre del teléfono</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>General</source>
        <translation>General</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Cámara</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Estado</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
</context>
<context>
    <name>StatusTab</name>
    <message>
        <source>CONNECTION</source>
        <translation>CONEXIÓN</translation>
    </message>
    <message>
        <source>This PC</source>
        <translation>Este PC</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Puerto</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Listo</translation>
    </message>
    <message>
        <source>Needs iTunes or the Apple Devices app</source>
        <translation>Requiere iTunes o la app Dispositivos Apple</translation>
    </message>
    <message>
        <source>DIAGNOSTICS</source>
        <translation>DIAGNÓSTICO</translation>
    </message>
    <message>
        <source>Performance</source>
        <translation>Rendimiento</translation>
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
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimizar</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurar</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximizar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Pevrix %1 is available.</source>
        <translation>Pevrix %1 está disponible.</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Descargar</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Descartar</translation>
    </message>
</context>
<context>
    <name>tray</name>
    <message>
        <source>Show Pevrix</source>
        <translation>Mostrar Pevrix</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Pevrix - in use by an app</source>
        <translation>Pevrix: en uso por una aplicación</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausar</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Reanudar</translation>
    </message>
    <message>
        <source>Pevrix is still running</source>
        <translation>Pevrix sigue funcionando</translation>
    </message>
    <message>
        <source>Click its icon to bring the window back. &quot;Quit&quot; in its menu ends it.</source>
        <translation>Haz clic en su icono para recuperar la ventana. «Salir», en su menú, lo cierra del todo.</translation>
    </message>
</context>
</TS>
