<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>AboutTab</name>
    <message>
        <source>Turn your phone into a PC webcam</source>
        <translation>スマートフォンを PC の Web カメラに</translation>
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
    <message>
        <source>No LAN address found</source>
        <translation>LAN アドレスなし</translation>
    </message>
    <message>
        <source>Type this address into the Pevrix app. Or copy the pairing link, send it to your phone and open it there. Whoever has the link can connect: share it with nobody.</source>
        <translation>このアドレスを Pevrix アプリに入力してください。または、ペアリング用リンクをコピーしてスマートフォンに送り、そこで開いてください。リンクを知っている人は誰でも接続できるため、他の人には渡さないでください。</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>コピーしました</translation>
    </message>
    <message>
        <source>Copy pairing link</source>
        <translation>ペアリング用リンクをコピー</translation>
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
        <extracomment>Announced by a screen reader: a recording has started.</extracomment>
        <translation>録画中</translation>
    </message>
</context>
<context>
    <name>CallHint</name>
    <message>
        <source>In your call, choose the camera “Pevrix”.</source>
        <extracomment>&quot;Pevrix&quot; is the name in the list of cameras of a video-call program.</extracomment>
        <translation>通話アプリでカメラ「Pevrix」を選んでください。</translation>
    </message>
    <message>
        <source>Calls and browsers do not find the Pevrix camera yet.</source>
        <translation>通話アプリとブラウザーからは、まだ Pevrix カメラが見えません。</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>登録</translation>
    </message>
    <message>
        <source>Dismiss the hint</source>
        <translation>ヒントを閉じる</translation>
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
        <extracomment>Of the camera: Windows knows it.</extracomment>
        <translation>登録済み</translation>
    </message>
    <message>
        <source>Not registered</source>
        <extracomment>Of the camera: Windows does not know it.</extracomment>
        <translation>未登録</translation>
    </message>
    <message>
        <source>Unregister</source>
        <extracomment>Button: Windows is to forget the camera.</extracomment>
        <translation>登録を解除</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
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
        <extracomment>Button: shows the recordings folder in the file manager.</extracomment>
        <translation>開く</translation>
    </message>
    <message>
        <source>Change</source>
        <extracomment>Button: chooses another recordings folder.</extracomment>
        <translation>変更</translation>
    </message>
    <message>
        <source>Where the Record button saves .mp4 files.</source>
        <extracomment>&quot;Record&quot; is the button below the video: the same word, in quotation marks.</extracomment>
        <translation>「録画」ボタンで撮った .mp4 ファイルの保存先です。</translation>
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
        <extracomment>Button: makes a new pairing code.</extracomment>
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
    <message>
        <source>Ready</source>
        <extracomment>Of the camera: programs can use it.</extracomment>
        <translation>準備完了</translation>
    </message>
    <message>
        <source>Camera library missing</source>
        <translation>カメラのライブラリがありません</translation>
    </message>
    <message>
        <source>Apps and browsers that take their cameras from PipeWire see the Pevrix camera.</source>
        <translation>PipeWire のカメラを使うアプリとブラウザーから Pevrix カメラが見えます。</translation>
    </message>
    <message>
        <source>No app can see the Pevrix camera. Install Pevrix again.</source>
        <translation>どのアプリからも Pevrix カメラが見えません。Pevrix を再インストールしてください。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>The current QR stops working and all paired phones are forgotten: they have to scan the new one. Go on?</source>
        <translation>今の QR コードは使えなくなり、ペアリング済みのスマートフォンはすべて解除されます。新しいコードの読み取りが必要です。続けますか？</translation>
    </message>
    <message>
        <source>Done: there is a new QR. Phones that were paired have to scan it.</source>
        <translation>新しい QR コードを作成しました。ペアリングしていたスマートフォンで読み取ってください。</translation>
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
        <extracomment>A choice: the theme follows the system&apos;s light or dark.</extracomment>
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
        <extracomment>On a small chip. Of the camera: a program reads it.</extracomment>
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
        <translation>システムの既定</translation>
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
    <name>Notice</name>
    <message>
        <source>Dismiss</source>
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
        <extracomment>Programs get the live picture again. PausedOverlay quotes it: keep both the same.</extracomment>
        <translation>カメラを再開</translation>
    </message>
    <message>
        <source>WAITING</source>
        <extracomment>On a small chip, in capitals: the first picture is awaited.</extracomment>
        <translation>待機中</translation>
    </message>
    <message>
        <source>NO VIDEO</source>
        <extracomment>On a small chip, in capitals: the phone sends no pictures.</extracomment>
        <translation>映像なし</translation>
    </message>
</context>
<context>
    <name>PairingView</name>
    <message>
        <source>Phones cannot connect</source>
        <translation>スマートフォンを接続できません</translation>
    </message>
    <message>
        <source>The Pevrix camera is missing, or another Pevrix uses it. Quit the other one or install Pevrix again, then start it anew.</source>
        <extracomment>At the end, &quot;it&quot; is Pevrix, neither the PC nor the camera.</extracomment>
        <translation>Pevrix カメラが見つからないか、別の Pevrix が使用しています。別の Pevrix を終了するか、Pevrix を再インストールしてから、もう一度起動してください。</translation>
    </message>
    <message>
        <source>Windows is blocking Pevrix on this network</source>
        <translation>Windows がこのネットワークで Pevrix をブロックしています</translation>
    </message>
    <message>
        <source>Your phone cannot reach this PC until you allow it. Asks for admin.</source>
        <translation>許可するまで、スマートフォンをこの PC に接続できません。管理者の許可が必要です。</translation>
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
    <message>
        <source>No network</source>
        <translation>ネットワークなし</translation>
    </message>
    <message>
        <source>Not ready</source>
        <extracomment>Of the program: phones cannot connect.</extracomment>
        <translation>準備できていません</translation>
    </message>
    <message>
        <source>Phones still cannot connect</source>
        <translation>まだスマートフォンを接続できません</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>再試行</translation>
    </message>
    <message>
        <source>This PC is not on a network</source>
        <translation>この PC はネットワークに接続されていません</translation>
    </message>
    <message>
        <source>Connect it to your Wi-Fi or plug in a network cable. A phone on a USB cable works without.</source>
        <extracomment>&quot;it&quot; is this PC.</extracomment>
        <translation>Wi-Fi に接続するか、LAN ケーブルを差し込んでください。USB ケーブルでつないだスマートフォンには不要です。</translation>
    </message>
    <message>
        <source>Calls and browsers do not find the camera yet</source>
        <translation>通話アプリとブラウザーからまだカメラが見えません</translation>
    </message>
    <message>
        <source>Register the Pevrix camera once. Asks for admin.</source>
        <translation>Pevrix カメラを登録してください (初回のみ)。管理者の許可が必要です。</translation>
    </message>
    <message>
        <source>Register</source>
        <extracomment>Button: makes the camera known to Windows.</extracomment>
        <translation>登録</translation>
    </message>
    <message>
        <source>A recording waits for its phone (%1)</source>
        <translation>録画はスマートフォンの接続待ちです (%1)</translation>
    </message>
    <message>
        <source>It goes on when the phone is back.</source>
        <extracomment>&quot;It&quot; is the recording.</extracomment>
        <translation>スマートフォンが再接続されると再開します。</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>録画を停止</translation>
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
        <extracomment>&quot;Resume camera&quot; is the name of the button above: the same words, in quotation marks.</extracomment>
        <translation>アプリには静止画が送られています。「カメラを再開」をクリックすると映像の送信を再開します。</translation>
    </message>
</context>
<context>
    <name>PhoneCard</name>
    <message>
        <source>No video</source>
        <translation>映像なし</translation>
    </message>
    <message>
        <source>Waiting…</source>
        <translation>待機中…</translation>
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
        <extracomment>For screen readers: names the picture of the QR code.</extracomment>
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
        <extracomment>Button, a verb: begins to write the video into a file. Not: to register.</extracomment>
        <translation>録画</translation>
    </message>
</context>
<context>
    <name>RecordingNotice</name>
    <message>
        <source>Recording saved</source>
        <translation>録画を保存しました</translation>
    </message>
    <message>
        <source>The recording has ended</source>
        <extracomment>A title: it ended through a fault, not by the user.</extracomment>
        <translation>録画が中断されました</translation>
    </message>
    <message>
        <source>The recording could not start</source>
        <translation>録画を開始できませんでした</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>フォルダーに表示</translation>
    </message>
    <message>
        <source>Choose folder</source>
        <translation>フォルダーを選択</translation>
    </message>
    <message>
        <source>It ended because the phone&apos;s picture has another size now.</source>
        <translation>スマートフォンの映像サイズが変わったため終了しました。</translation>
    </message>
    <message>
        <source>No picture came, so there is no file.</source>
        <translation>映像が届かなかったため、ファイルはありません。</translation>
    </message>
    <message>
        <source>The disk is full. What was recorded until then is saved.</source>
        <translation>ディスクがいっぱいです。それまでの録画は保存されています。</translation>
    </message>
    <message>
        <source>The disk is full. Free some space or choose another folder.</source>
        <translation>ディスクがいっぱいです。空きを増やすか、別のフォルダーを選んでください。</translation>
    </message>
    <message>
        <source>The recordings folder is gone, and the recording with it.</source>
        <translation>録画フォルダーがなくなり、録画も失われました。</translation>
    </message>
    <message>
        <source>Pevrix cannot write to the folder %1.</source>
        <translation>Pevrix はフォルダー %1 に書き込めません。</translation>
    </message>
    <message>
        <source>The video could not be written any further. What was recorded until then is saved.</source>
        <translation>動画の書き込みを続けられませんでした。それまでの録画は保存されています。</translation>
    </message>
    <message>
        <source>The video cannot be written there. Choose another folder or restart Pevrix.</source>
        <translation>そこには動画を書き込めません。別のフォルダーを選ぶか、Pevrix を再起動してください。</translation>
    </message>
</context>
<context>
    <name>RegistrationDialog</name>
    <message>
        <source>Register the camera?</source>
        <translation>カメラを登録しますか？</translation>
    </message>
    <message>
        <source>Others can change files in %1. A program put there would run in every video call. Register anyway?</source>
        <translation>ほかのユーザーが %1 のファイルを変更できます。そこに置かれたプログラムは、すべてのビデオ通話で実行されます。それでも登録しますか？</translation>
    </message>
    <message>
        <source>Register anyway</source>
        <translation>それでも登録</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
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
        <translation>全般</translation>
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
        <extracomment>Of USB: phones on a cable can connect.</extracomment>
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
    <message>
        <source>Needs the usbmuxd service</source>
        <extracomment>usbmuxd is the name of a system service.</extracomment>
        <translation>usbmuxd サービスが必要</translation>
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
        <translation>Pevrix %1 を利用できます。</translation>
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
    <name>VideoOverlay</name>
    <message>
        <source>Phone paused (no video)</source>
        <translation>スマートフォンが一時停止中 (映像なし)</translation>
    </message>
    <message>
        <source>Waiting for video…</source>
        <translation>映像を待っています…</translation>
    </message>
    <message>
        <source>Open the Pevrix app on your phone to go on. Until then, apps see a placeholder.</source>
        <translation>続けるには、スマートフォンで Pevrix アプリを開いてください。それまでアプリには待機画面が表示されます。</translation>
    </message>
    <message>
        <source>Keep the Pevrix app open on your phone.</source>
        <translation>スマートフォンで Pevrix アプリを開いたままにしてください。</translation>
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
        <translation>Pevrix — アプリが使用中</translation>
    </message>
    <message>
        <source>Pause</source>
        <extracomment>Menu entry, a verb: pauses what programs get from the camera. &quot;Resume&quot; undoes it.</extracomment>
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
