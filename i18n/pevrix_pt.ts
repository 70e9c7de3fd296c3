<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR" sourcelanguage="en">
<context>
    <name>AboutTab</name>
    <message>
        <source>Turn your phone into a PC webcam</source>
        <translation>Transforme seu celular em uma webcam para o PC</translation>
    </message>
</context>
<context>
    <name>AddPhoneCard</name>
    <message>
        <source>Add phone</source>
        <translation>Adicionar</translation>
    </message>
</context>
<context>
    <name>AddPhoneDialog</name>
    <message>
        <source>Add a phone</source>
        <translation>Adicionar um celular</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app on another phone.</source>
        <translation>Escaneie este código com o aplicativo Pevrix em outro celular.</translation>
    </message>
</context>
<context>
    <name>AddressRow</name>
    <message>
        <source>Can&apos;t scan?</source>
        <translation>Não consegue escanear?</translation>
    </message>
</context>
<context>
    <name>Announcer</name>
    <message>
        <source>The camera is live</source>
        <translation>A câmera está ao vivo</translation>
    </message>
    <message>
        <source>The camera is paused</source>
        <translation>A câmera está em pausa</translation>
    </message>
    <message>
        <source>Phone connected: %1</source>
        <translation>Celular conectado: %1</translation>
    </message>
    <message>
        <source>Phone disconnected: %1</source>
        <translation>Celular desconectado: %1</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Gravando</translation>
    </message>
    <message>
        <source>The recording has stopped by itself</source>
        <translation>A gravação parou sozinha</translation>
    </message>
    <message>
        <source>Recording saved</source>
        <translation>Gravação salva</translation>
    </message>
</context>
<context>
    <name>CameraTab</name>
    <message>
        <source>CAMERA</source>
        <translation>CÂMERA</translation>
    </message>
    <message>
        <source>Registered</source>
        <translation>Registrada</translation>
    </message>
    <message>
        <source>Not registered</source>
        <translation>Não registrada</translation>
    </message>
    <message>
        <source>Unregister</source>
        <translation>Remover registro</translation>
    </message>
    <message>
        <source>Register</source>
        <translation>Registrar</translation>
    </message>
    <message>
        <source>Registering lets apps like Zoom, Teams and browsers see the Pevrix camera. Asks for admin.</source>
        <translation>Com o registro, aplicativos como Zoom e Teams e os navegadores veem a câmera Pevrix. Pede permissão de administrador.</translation>
    </message>
    <message>
        <source>RECORDINGS</source>
        <translation>GRAVAÇÕES</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Alterar</translation>
    </message>
    <message>
        <source>Where the Record button saves .mp4 files.</source>
        <translation>Onde o botão Gravar salva os arquivos .mp4.</translation>
    </message>
    <message>
        <source>PAIRING</source>
        <translation>PAREAMENTO</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Código</translation>
    </message>
    <message>
        <source>Regenerate</source>
        <translation>Gerar novo</translation>
    </message>
    <message>
        <source>Regenerating makes the current QR stop working for new phones.</source>
        <translation>Ao gerar um novo, o QR atual deixa de funcionar para novos celulares.</translation>
    </message>
    <message>
        <source>Choose recordings folder</source>
        <translation>Escolher a pasta de gravações</translation>
    </message>
    <message>
        <source>Unregister the camera</source>
        <translation>Remover registro da câmera</translation>
    </message>
    <message>
        <source>Register the camera</source>
        <translation>Registrar a câmera</translation>
    </message>
    <message>
        <source>Open the recordings folder</source>
        <translation>Abrir a pasta de gravações</translation>
    </message>
    <message>
        <source>Change the recordings folder</source>
        <translation>Alterar a pasta de gravações</translation>
    </message>
    <message>
        <source>Regenerate the pairing code</source>
        <translation>Gerar novo código de pareamento</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Edit</source>
        <translation>Editar</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Recortar</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Colar</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Selecionar tudo</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>APPEARANCE</source>
        <translation>APARÊNCIA</translation>
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
        <translation>Escuro</translation>
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
        <translation>JANELA</translation>
    </message>
    <message>
        <source>Close to tray</source>
        <translation>Fechar para a bandeja</translation>
    </message>
    <message>
        <source>Keep Pevrix running in the notification area when you close the window.</source>
        <translation>O Pevrix continua em execução na área de notificação quando você fecha a janela.</translation>
    </message>
</context>
<context>
    <name>InUseChip</name>
    <message>
        <source>In use</source>
        <translation>Em uso</translation>
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
        <translation>Idioma do sistema</translation>
    </message>
</context>
<context>
    <name>Modal</name>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
    </message>
</context>
<context>
    <name>OutputChip</name>
    <message>
        <source>Pause camera</source>
        <translation>Pausar a câmera</translation>
    </message>
    <message>
        <source>Resume camera</source>
        <translation>Retomar a câmera</translation>
    </message>
</context>
<context>
    <name>PairingView</name>
    <message>
        <source>Phones cannot connect</source>
        <translation>Os telefones não podem se conectar</translation>
    </message>
    <message>
        <source>The Pevrix camera is missing, or another Pevrix uses it. Quit the other one or install Pevrix again, then start it anew.</source>
        <translation>A câmera Pevrix não foi encontrada, ou outro Pevrix a está usando. Feche o outro ou reinstale o Pevrix e depois abra-o novamente.</translation>
    </message>
    <message>
        <source>Windows is blocking Pevrix on this network</source>
        <translation>O Windows está bloqueando o Pevrix nesta rede</translation>
    </message>
    <message>
        <source>Your phone cannot reach this PC until you allow it. Asks for admin.</source>
        <translation>O celular não alcança este PC até que você permita. Pede permissão de administrador.</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Permitir</translation>
    </message>
    <message>
        <source>Ready to pair</source>
        <translation>Pronto para parear</translation>
    </message>
    <message>
        <source>Connect your phone</source>
        <translation>Conecte seu celular</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app. Keep your phone on the same Wi-Fi as this PC.</source>
        <translation>Escaneie este código com o aplicativo Pevrix. Mantenha o celular na mesma rede Wi-Fi deste PC.</translation>
    </message>
    <message>
        <source>This PC: %1</source>
        <translation>Este PC: %1</translation>
    </message>
    <message>
        <source>Get the app</source>
        <translation>Baixar o aplicativo</translation>
    </message>
</context>
<context>
    <name>PausedOverlay</name>
    <message>
        <source>Camera output paused</source>
        <translation>Saída da câmera em pausa</translation>
    </message>
    <message>
        <source>Apps receive a frozen frame. Click Resume camera to broadcast again.</source>
        <translation>Os aplicativos recebem uma imagem congelada. Clique em Retomar a câmera para transmitir de novo.</translation>
    </message>
</context>
<context>
    <name>PreviewPanel</name>
    <message>
        <source>Live picture of the phone</source>
        <translation>Imagem ao vivo do celular</translation>
    </message>
</context>
<context>
    <name>QrCode</name>
    <message>
        <source>Pairing code</source>
        <translation>Código de pareamento</translation>
    </message>
</context>
<context>
    <name>RecordButton</name>
    <message>
        <source>Stop recording</source>
        <translation>Parar a gravação</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Gravar</translation>
    </message>
</context>
<context>
    <name>RenameButton</name>
    <message>
        <source>Rename %1</source>
        <translation>Renomear %1</translation>
    </message>
</context>
<context>
    <name>RenameField</name>
    <message>
        <source>Name of the phone</source>
        <translation>Nome do celular</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Configurações</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Geral</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Câmera</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Sobre</translation>
    </message>
</context>
<context>
    <name>StatusTab</name>
    <message>
        <source>CONNECTION</source>
        <translation>CONEXÃO</translation>
    </message>
    <message>
        <source>This PC</source>
        <translation>Este PC</translation>
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
        <translation>Requer o iTunes ou o app Dispositivos Apple</translation>
    </message>
    <message>
        <source>DIAGNOSTICS</source>
        <translation>DIAGNÓSTICO</translation>
    </message>
    <message>
        <source>Performance</source>
        <translation>Desempenho</translation>
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
        <translation>Configurações</translation>
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
        <translation>Fechar</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Pevrix %1 is available.</source>
        <translation>O Pevrix %1 está disponível.</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Baixar</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Dispensar</translation>
    </message>
</context>
<context>
    <name>tray</name>
    <message>
        <source>Show Pevrix</source>
        <translation>Mostrar o Pevrix</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Sair</translation>
    </message>
    <message>
        <source>Pevrix - in use by an app</source>
        <translation>Pevrix - em uso por um aplicativo</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausar</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Retomar</translation>
    </message>
    <message>
        <source>Pevrix is still running</source>
        <translation>O Pevrix continua em execução</translation>
    </message>
    <message>
        <source>Click its icon to bring the window back. &quot;Quit&quot; in its menu ends it.</source>
        <translation>Clique no ícone para trazer a janela de volta. Para encerrar, escolha “Sair” no menu do ícone.</translation>
    </message>
</context>
</TS>
