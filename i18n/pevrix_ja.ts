<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>AboutTab</name>
    <message>
        <source>Turn your phone into a PC webcam</source>
        <translation>スマートフォンを PC のウェブカメラに</translation>
    </message>
</context>
<context>
    <name>AddPhoneCard</name>
    <message>
        <source>Add phone</source>
        <translation>追加</translation>
    </message>
</context>
<context>
    <name>AddPhoneDialog</name>
    <message>
        <source>Add a phone</source>
        <translation>スマートフォンを追加</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app on another phone.</source>
        <translation>別のスマートフォンの Pevrix アプリでこのコードを読み取ってください。</translation>
    </message>
</context>
<context>
    <name>AddressRow</name>
    <message>
        <source>Can&apos;t scan?</source>
        <translation>読み取れない場合</translation>
    </message>
</context>
<context>
    <name>Announcer</name>
    <message>
        <source>The camera is live</source>
        <translation>カメラの映像を送信しています</translation>
    </message>
    <message>
        <source>The camera is paused</source>
        <translation>カメラは一時停止中です</translation>
    </message>
    <message>
        <source>Phone connected: %1</source>
        <translation>スマートフォンが接続されました: %1</translation>
    </message>
    <message>
        <source>Phone disconnected: %1</source>
        <translation>スマートフォンが切断されました: %1</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>録画中</translation>
    </message>
    <message>
        <source>The recording has stopped by itself</source>
        <translation>録画が自動的に停止しました</translation>
    </message>
    <message>
        <source>Recording saved</source>
        <translation>録画を保存しました</translation>
    </message>
</context>
<context>
    <name>CameraTab</name>
    <message>
        <source>CAMERA</source>
        <translation>カメラ</translation>
    </message>
    <message>
        <source>Registered</source>
        <translation>登録済み</translation>
    </message>
    <message>
        <source>Not registered</source>
        <translation>未登録</translation>
    </message>
    <message>
        <source>Unregister</source>
        <translation>登録を解除</translation>
    </message>
    <message>
        <source>Register</source>
        <translation>登録</translation>
    </message>
    <message>
        <source>Registering lets apps like Zoom, Teams and browsers see the Pevrix camera. Asks for admin.</source>
        <translation>登録すると、Zoom や Teams などのアプリとブラウザーから Pevrix カメラが見えるようになります。管理者の許可が必要です。</translation>
    </message>
    <message>
        <source>RECORDINGS</source>
        <translation>録画</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>変更</translation>
    </message>
    <message>
        <source>Where the Record button saves .mp4 files.</source>
        <translation>「録画」ボタンで .mp4 ファイルを保存する場所です。</translation>
    </message>
    <message>
        <source>PAIRING</source>
        <translation>ペアリング</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>コード</translation>
    </message>
    <message>
        <source>Regenerate</source>
        <translation>再生成</translation>
    </message>
    <message>
        <source>Regenerating makes the current QR stop working for new phones.</source>
        <translation>再生成すると、今の QR コードは新しいスマートフォンでは使えなくなります。</translation>
    </message>
    <message>
        <source>Choose recordings folder</source>
        <translation>録画フォルダーを選択</translation>
    </message>
    <message>
        <source>Unregister the camera</source>
        <translation>カメラの登録を解除</translation>
    </message>
    <message>
        <source>Register the camera</source>
        <translation>カメラを登録</translation>
    </message>
    <message>
        <source>Open the recordings folder</source>
        <translation>録画フォルダーを開く</translation>
    </message>
    <message>
        <source>Change the recordings folder</source>
        <translation>録画フォルダーを変更</translation>
    </message>
    <message>
        <source>Regenerate the pairing code</source>
        <translation>ペアリングコードを再生成</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Edit</source>
        <translation>編集</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>切り取り</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>すべて選択</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>APPEARANCE</source>
        <translation>外観</translation>
    </message>
    <message>
        <source>System</source>
        <translation>システム</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>ライト</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>ダーク</translation>
    </message>
    <message>
        <source>LANGUAGE</source>
        <translation>言語</translation>
    </message>
    <message>
        <source>Language: %1</source>
        <translation>言語: %1</translation>
    </message>
    <message>
        <source>WINDOW</source>
        <translation>ウィンドウ</translation>
    </message>
    <message>
        <source>Close to tray</source>
        <translation>閉じたら通知領域に残す</translation>
    </message>
    <message>
        <source>Keep Pevrix running in the notification area when you close the window.</source>
        <translation>ウィンドウを閉じても、Pevrix は通知領域で動作を続けます。</translation>
    </message>
</context>
<context>
    <name>InUseChip</name>
    <message>
        <source>In use</source>
        <translation>使用中</translation>
    </message>
</context>
<context>
    <name>LanguageDialog</name>
    <message>
        <source>Language</source>
        <translation>言語</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>System default</source>
        <translation>システムの設定</translation>
    </message>
</context>
<context>
    <name>Modal</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>OutputChip</name>
    <message>
        <source>Pause camera</source>
        <translation>カメラを一時停止</translation>
    </message>
    <message>
        <source>Resume camera</source>
        <translation>カメラを再開</translation>
    </message>
</context>
<context>
    <name>PairingView</name>
    <message>
        <source>Phones cannot connect</source>
        <translation>スマートフォンが接続できません</translation>
    </message>
    <message>
        <source>The Pevrix camera is missing, or another Pevrix uses it. Quit the other one or install Pevrix again, then start it anew.</source>
        <translation>Pevrix カメラが見つからないか、別の Pevrix が使用しています。別の Pevrix を終了するか、Pevrix を再インストールしてから、もう一度起動してください。</translation>
    </message>
    <message>
        <source>Windows is blocking Pevrix on this network</source>
        <translation>Windows がこのネットワークで Pevrix をブロックしています</translation>
    </message>
    <message>
        <source>Your phone cannot reach this PC until you allow it. Asks for admin.</source>
        <translation>許可するまで、スマートフォンはこの PC に接続できません。管理者の許可が必要です。</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>許可</translation>
    </message>
    <message>
        <source>Ready to pair</source>
        <translation>ペアリングできます</translation>
    </message>
    <message>
        <source>Connect your phone</source>
        <translation>スマートフォンを接続</translation>
    </message>
    <message>
        <source>Scan this code with the Pevrix app. Keep your phone on the same Wi-Fi as this PC.</source>
        <translation>Pevrix アプリでこのコードを読み取ってください。スマートフォンはこの PC と同じ Wi-Fi に接続してください。</translation>
    </message>
    <message>
        <source>This PC: %1</source>
        <translation>この PC: %1</translation>
    </message>
    <message>
        <source>Get the app</source>
        <translation>アプリを入手</translation>
    </message>
</context>
<context>
    <name>PausedOverlay</name>
    <message>
        <source>Camera output paused</source>
        <translation>カメラの出力を一時停止中</translation>
    </message>
    <message>
        <source>Apps receive a frozen frame. Click Resume camera to broadcast again.</source>
        <translation>アプリには静止画が送られています。「カメラを再開」をクリックすると配信を再開します。</translation>
    </message>
</context>
<context>
    <name>PreviewPanel</name>
    <message>
        <source>Live picture of the phone</source>
        <translation>スマートフォンのライブ映像</translation>
    </message>
</context>
<context>
    <name>QrCode</name>
    <message>
        <source>Pairing code</source>
        <translation>ペアリングコード</translation>
    </message>
</context>
<context>
    <name>RecordButton</name>
    <message>
        <source>Stop recording</source>
        <translation>録画を停止</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>録画</translation>
    </message>
</context>
<context>
    <name>RenameButton</name>
    <message>
        <source>Rename %1</source>
        <translation>%1 の名前を変更</translation>
    </message>
</context>
<context>
    <name>RenameField</name>
    <message>
        <source>Name of the phone</source>
        <translation>スマートフォンの名前</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>General</source>
        <translation>一般</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>カメラ</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>状態</translation>
    </message>
    <message>
        <source>About</source>
        <translation>情報</translation>
    </message>
</context>
<context>
    <name>StatusTab</name>
    <message>
        <source>CONNECTION</source>
        <translation>接続</translation>
    </message>
    <message>
        <source>This PC</source>
        <translation>この PC</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>ポート</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>準備完了</translation>
    </message>
    <message>
        <source>Needs iTunes or the Apple Devices app</source>
        <translation>iTunes または「Apple デバイス」アプリが必要</translation>
    </message>
    <message>
        <source>DIAGNOSTICS</source>
        <translation>診断</translation>
    </message>
    <message>
        <source>Performance</source>
        <translation>パフォーマンス</translation>
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
        <translation>設定</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>元のサイズに戻す</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>最大化</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Pevrix %1 is available.</source>
        <translation>Pevrix %1 が利用できます。</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>ダウンロード</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>tray</name>
    <message>
        <source>Show Pevrix</source>
        <translation>Pevrix を表示</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Pevrix - in use by an app</source>
        <translation>Pevrix - アプリが使用中</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>再開</translation>
    </message>
    <message>
        <source>Pevrix is still running</source>
        <translation>Pevrix は動作を続けています</translation>
    </message>
    <message>
        <source>Click its icon to bring the window back. &quot;Quit&quot; in its menu ends it.</source>
        <translation>アイコンをクリックするとウィンドウが戻ります。アイコンのメニューの「終了」で終了します。</translation>
    </message>
</context>
</TS>
