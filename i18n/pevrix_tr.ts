<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="tr_TR" sourcelanguage="en">
<context>
    <name>AboutTab</name>
    <message>
        <source>Turn your phone into a PC webcam</source>
        <translation>Telefonunuzu bilgisayar kamerasına dönüştürün</translation>
    </message>
</context>
<context>
    <name>AddPhoneCard</name>
    <message>
        <source>Add phone</source>
        <translation>Telefon ekle</translation>
    </message>
</context>
<context>
    <name>AddPhoneDialog</name>
    <message>
        <source>Add a phone</source>
        <translation>Telefon ekle</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app on another phone.</source>
        <translation>Bu kodu başka bir telefondaki Pevrix uygulamasıyla tarayın.</translation>
    </message>
</context>
<context>
    <name>AddressRow</name>
    <message>
        <source>Can&apos;t scan?</source>
        <translation>Tarayamıyor musunuz?</translation>
    </message>
</context>
<context>
    <name>Announcer</name>
    <message>
        <source>The camera is live</source>
        <translation>Kamera canlı yayında</translation>
    </message>
    <message>
        <source>The camera is paused</source>
        <translation>Kamera duraklatıldı</translation>
    </message>
    <message>
        <source>Phone connected: %1</source>
        <translation>Telefon bağlandı: %1</translation>
    </message>
    <message>
        <source>Phone disconnected: %1</source>
        <translation>Telefonun bağlantısı kesildi: %1</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Video kaydediliyor</translation>
    </message>
    <message>
        <source>The recording has stopped by itself</source>
        <translation>Video kaydı kendiliğinden durdu</translation>
    </message>
    <message>
        <source>Recording saved</source>
        <translation>Video kaydedildi</translation>
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
        <translation>Kayıtlı</translation>
    </message>
    <message>
        <source>Not registered</source>
        <translation>Kayıtlı değil</translation>
    </message>
    <message>
        <source>Unregister</source>
        <translation>Kaydı sil</translation>
    </message>
    <message>
        <source>Register</source>
        <translation>Kaydet</translation>
    </message>
    <message>
        <source>Registering lets apps like Zoom, Teams and browsers see the Pevrix camera. Asks for admin.</source>
        <translation>Kayıt sayesinde Zoom, Teams gibi uygulamalar ve tarayıcılar Pevrix kamerasını görür. Yönetici izni ister.</translation>
    </message>
    <message>
        <source>RECORDINGS</source>
        <translation>KAYITLAR</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Aç</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Değiştir</translation>
    </message>
    <message>
        <source>Where the Record button saves .mp4 files.</source>
        <translation>Kaydet düğmesinin .mp4 dosyalarını kaydettiği yer.</translation>
    </message>
    <message>
        <source>PAIRING</source>
        <translation>EŞLEŞTİRME</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Kod</translation>
    </message>
    <message>
        <source>Regenerate</source>
        <translation>Yenile</translation>
    </message>
    <message>
        <source>Regenerating makes the current QR stop working for new phones.</source>
        <translation>Yenilendiğinde geçerli QR kodu yeni telefonlarda artık çalışmaz.</translation>
    </message>
    <message>
        <source>Choose recordings folder</source>
        <translation>Kayıt klasörünü seçin</translation>
    </message>
    <message>
        <source>Unregister the camera</source>
        <translation>Kamera kaydını sil</translation>
    </message>
    <message>
        <source>Register the camera</source>
        <translation>Kamerayı kaydet</translation>
    </message>
    <message>
        <source>Open the recordings folder</source>
        <translation>Video kayıtları klasörünü aç</translation>
    </message>
    <message>
        <source>Change the recordings folder</source>
        <translation>Video kayıtları klasörünü değiştir</translation>
    </message>
    <message>
        <source>Regenerate the pairing code</source>
        <translation>Eşleştirme kodunu yenile</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Edit</source>
        <translation>Düzen</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Kes</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopyala</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Yapıştır</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Tümünü seç</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>APPEARANCE</source>
        <translation>GÖRÜNÜM</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Sistem</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Açık</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Koyu</translation>
    </message>
    <message>
        <source>LANGUAGE</source>
        <translation>DİL</translation>
    </message>
    <message>
        <source>Language: %1</source>
        <translation>Dil: %1</translation>
    </message>
    <message>
        <source>WINDOW</source>
        <translation>PENCERE</translation>
    </message>
    <message>
        <source>Close to tray</source>
        <translation>Bildirim alanına kapat</translation>
    </message>
    <message>
        <source>Keep Pevrix running in the notification area when you close the window.</source>
        <translation>Pencereyi kapattığınızda Pevrix bildirim alanında çalışmaya devam eder.</translation>
    </message>
</context>
<context>
    <name>InUseChip</name>
    <message>
        <source>In use</source>
        <translation>Kullanımda</translation>
    </message>
</context>
<context>
    <name>LanguageDialog</name>
    <message>
        <source>Language</source>
        <translation>Dil</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>System default</source>
        <translation>Sistem dili</translation>
    </message>
</context>
<context>
    <name>Modal</name>
    <message>
        <source>Close</source>
        <translation>Kapat</translation>
    </message>
</context>
<context>
    <name>OutputChip</name>
    <message>
        <source>Pause camera</source>
        <translation>Kamerayı duraklat</translation>
    </message>
    <message>
        <source>Resume camera</source>
        <translation>Kamerayı sürdür</translation>
    </message>
</context>
<context>
    <name>PairingView</name>
    <message>
        <source>Phones cannot connect</source>
        <translation>Telefonlar bağlanamıyor</translation>
    </message>
    <message>
        <source>The Pevrix camera is missing, or another Pevrix uses it. Quit the other one or install Pevrix again, then start it anew.</source>
        <translation>Pevrix kamerası eksik ya da başka bir Pevrix onu kullanıyor. Diğerinden çıkın veya Pevrix’i yeniden kurun, sonra yeniden başlatın.</translation>
    </message>
    <message>
        <source>Windows is blocking Pevrix on this network</source>
        <translation>Windows bu ağda Pevrix&apos;i engelliyor</translation>
    </message>
    <message>
        <source>Your phone cannot reach this PC until you allow it. Asks for admin.</source>
        <translation>İzin vermediğiniz sürece telefonunuz bu bilgisayara ulaşamaz. Yönetici izni ister.</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>İzin ver</translation>
    </message>
    <message>
        <source>Ready to pair</source>
        <translation>Eşleştirmeye hazır</translation>
    </message>
    <message>
        <source>Connect your phone</source>
        <translation>Telefonunuzu bağlayın</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app. Keep your phone on the same Wi-Fi as this PC.</source>
        <translation>Bu kodu Pevrix uygulamasıyla tarayın. Telefonunuz bu bilgisayarla aynı Wi-Fi ağında olmalıdır.</translation>
    </message>
    <message>
        <source>This PC: %1</source>
        <translation>Bu bilgisayar: %1</translation>
    </message>
    <message>
        <source>Get the app</source>
        <translation>Uygulamayı edinin</translation>
    </message>
</context>
<context>
    <name>PausedOverlay</name>
    <message>
        <source>Camera output paused</source>
        <translation>Kamera çıkışı duraklatıldı</translation>
    </message>
    <message>
        <source>Apps receive a frozen frame. Click Resume camera to broadcast again.</source>
        <translation>Uygulamalar donmuş bir kare alır. Yeniden yayınlamak için Kamerayı sürdür&apos;e tıklayın.</translation>
    </message>
</context>
<context>
    <name>PreviewPanel</name>
    <message>
        <source>Live picture of the phone</source>
        <translation>Telefonun canlı görüntüsü</translation>
    </message>
</context>
<context>
    <name>QrCode</name>
    <message>
        <source>Pairing code</source>
        <translation>Eşleştirme kodu</translation>
    </message>
</context>
<context>
    <name>RecordButton</name>
    <message>
        <source>Stop recording</source>
        <translation>Kaydı durdur</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Kaydet</translation>
    </message>
</context>
<context>
    <name>RenameButton</name>
    <message>
        <source>Rename %1</source>
        <translation>%1: yeniden adlandır</translation>
    </message>
</context>
<context>
    <name>RenameField</name>
    <message>
        <source>Name of the phone</source>
        <translation>Telefonun adı</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Ayarlar</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Genel</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Durum</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Hakkında</translation>
    </message>
</context>
<context>
    <name>StatusTab</name>
    <message>
        <source>CONNECTION</source>
        <translation>BAĞLANTI</translation>
    </message>
    <message>
        <source>This PC</source>
        <translation>Bu bilgisayar</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Bağlantı noktası</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Hazır</translation>
    </message>
    <message>
        <source>Needs iTunes or the Apple Devices app</source>
        <translation>iTunes veya Apple Aygıtları uygulaması gerekir</translation>
    </message>
    <message>
        <source>DIAGNOSTICS</source>
        <translation>TANILAMA</translation>
    </message>
    <message>
        <source>Performance</source>
        <translation>Performans</translation>
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
        <translation>Ayarlar</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Simge durumuna küçült</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Önceki boyut</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Ekranı kapla</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Kapat</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Pevrix %1 is available.</source>
        <translation>Pevrix %1 kullanıma hazır.</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>İndir</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Kapat</translation>
    </message>
</context>
<context>
    <name>tray</name>
    <message>
        <source>Show Pevrix</source>
        <translation>Pevrix&apos;i göster</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Çıkış</translation>
    </message>
    <message>
        <source>Pevrix - in use by an app</source>
        <translation>Pevrix - bir uygulama kullanıyor</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Duraklat</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Sürdür</translation>
    </message>
    <message>
        <source>Pevrix is still running</source>
        <translation>Pevrix çalışmaya devam ediyor</translation>
    </message>
    <message>
        <source>Click its icon to bring the window back. &quot;Quit&quot; in its menu ends it.</source>
        <translation>Pencereyi geri getirmek için simgesine tıklayın. Simge menüsündeki “Çıkış” programı kapatır.</translation>
    </message>
</context>
</TS>
