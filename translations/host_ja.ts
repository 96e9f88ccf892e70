<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP">
<context>
    <name>FirstVisit</name>
    <message>
        <source>Save the &amp;points for me</source>
        <translation>点を保存(&amp;P)</translation>
    </message>
    <message>
        <source>Your first visit</source>
        <translation>はじめての方へ</translation>
    </message>
    <message>
        <source>Close the first visit</source>
        <translation>はじめての方へを閉じる</translation>
    </message>
    <message>
        <source>Close; the menu Help brings it back</source>
        <translation>閉じる (ヘルプメニューで再表示)</translation>
    </message>
    <message>
        <source>1. Save the object&apos;s reference points in the simulator&apos;s window.</source>
        <translation>1. シミュレーターのウィンドウで物体の基準点を保存します。</translation>
    </message>
    <message>
        <source>1. The object&apos;s reference points are in %1.</source>
        <translation>1. 物体の基準点は %1 にあります。</translation>
    </message>
    <message>
        <source>2. Open Calibration / Room adjustment (Shift+F5), tab &quot;Fine&quot;.</source>
        <translation>2. キャリブレーション / ルーム調整 (Shift+F5) を開き、微調整タブを選びます。</translation>
    </message>
    <message>
        <source>3. Press Start, then load the file of the reference points.</source>
        <translation>3. 開始を押し、基準点のファイルを読み込みます。</translation>
    </message>
    <message>
        <source>4. Touch each point of the object in the simulator&apos;s window and measure it there: %1 of %2.</source>
        <translation>4. シミュレーターのウィンドウで物体の各点に触れて測定します: %2 点中 %1 点。</translation>
    </message>
    <message>
        <source>4. Touch each point of the object in the simulator&apos;s window and measure it there.</source>
        <translation>4. シミュレーターのウィンドウで物体の各点に触れて測定します。</translation>
    </message>
    <message>
        <source>5. Accept the result with OK, then press Apply.</source>
        <translation>5. OK で結果を採用し、適用を押します。</translation>
    </message>
    <message>
        <source>6. Touch point 1 again: the simulator shows the tip at 0.0 0.0 0.0, because the room now begins there.</source>
        <translation>6. もう一度点 1 に触れると、シミュレーターの先端は 0.0 0.0 0.0 になります。ルームの原点がそこに移ったためです。</translation>
    </message>
    <message>
        <source>Done: </source>
        <translation>完了: </translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Tracking Control</source>
        <translation>Tracking Control</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>C&amp;lear panes</source>
        <translation>表示を消去(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>このプログラムについて(&amp;A)</translation>
    </message>
    <message>
        <source>About</source>
        <translation>このプログラムについて</translation>
    </message>
    <message>
        <source>Front-end for a tracking controller.

Loads modules, passes their texts to the controller and delivers its tracking data to them.</source>
        <translation>トラッキングコントローラーのフロントエンド。

モジュールを読み込み、その要求をコントローラーに渡し、トラッキングデータをモジュールに届けます。</translation>
    </message>
    <message>
        <source>&amp;Start the simulator again</source>
        <translation>シミュレーターを再起動(&amp;S)</translation>
    </message>
    <message>
        <source>Controller</source>
        <translation>コントローラー</translation>
    </message>
    <message>
        <source>The tracking simulator has ended.</source>
        <translation>トラッキングシミュレーターが終了しました。</translation>
    </message>
    <message>
        <source>Start the simulator again</source>
        <translation>シミュレーターを再起動</translation>
    </message>
    <message>
        <source>Save &amp;messages...</source>
        <translation>メッセージを保存(&amp;M)...</translation>
    </message>
    <message>
        <source>Save &amp;traffic...</source>
        <translation>通信を保存(&amp;T)...</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Text files (*.txt);;All files (*)</source>
        <translation>テキストファイル (*.txt);;すべてのファイル (*)</translation>
    </message>
    <message>
        <source>&amp;First visit</source>
        <translation>はじめての方へ(&amp;F)</translation>
    </message>
    <message>
        <source>First visit</source>
        <translation>はじめての方へ</translation>
    </message>
</context>
<context>
    <name>MessagePane</name>
    <message>
        <source>Messages of the modules appear here.</source>
        <translation>モジュールのメッセージがここに表示されます。</translation>
    </message>
    <message>
        <source>M&amp;essages</source>
        <translation>メッセージ(&amp;E)</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Close the notice</source>
        <translation>通知を閉じる</translation>
    </message>
    <message>
        <source>  (%1 times)</source>
        <translation>  (%1 回)</translation>
    </message>
    <message>
        <source>Click to close</source>
        <translation>クリックすると閉じます</translation>
    </message>
    <message>
        <source>Click to keep it here</source>
        <translation>クリックすると表示したままにします</translation>
    </message>
</context>
<context>
    <name>Notices</name>
    <message>
        <source>Notices</source>
        <translation>通知</translation>
    </message>
</context>
<context>
    <name>Session</name>
    <message>
        <source>Observer: nothing can be changed</source>
        <translation>監視モード: 変更できません</translation>
    </message>
    <message>
        <source>The controller at %1 does not tell its version: %2</source>
        <translation>%1 のコントローラーがバージョンを返しません: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a version</source>
        <translation>「%1」はバージョンではありません</translation>
    </message>
    <message>
        <source>There is no port to receive data on</source>
        <translation>データを受信するポートがありません</translation>
    </message>
    <message>
        <source>The controller does not send data</source>
        <translation>コントローラーがデータを送信しません</translation>
    </message>
    <message>
        <source>Module loaded: %1</source>
        <translation>モジュールを読み込みました: %1</translation>
    </message>
    <message>
        <source>There is no host %1: %2</source>
        <translation>ホスト %1 がありません: %2</translation>
    </message>
    <message>
        <source>The controller answers again</source>
        <translation>コントローラーが再び応答しています</translation>
    </message>
    <message>
        <source>The controller does not answer</source>
        <translation>コントローラーが応答しません</translation>
    </message>
    <message>
        <source>The points were not saved: %1</source>
        <translation>点は保存されませんでした: %1</translation>
    </message>
</context>
<context>
    <name>StatusTexts</name>
    <message>
        <source>Controller is starting</source>
        <translation>コントローラーを起動中</translation>
    </message>
    <message>
        <source>Controller %1</source>
        <translation>コントローラー %1</translation>
    </message>
    <message>
        <source>Controller %1 answers too slowly</source>
        <translation>コントローラー %1 の応答が遅すぎます</translation>
    </message>
    <message>
        <source>Controller %1 does not answer</source>
        <translation>コントローラー %1 が応答しません</translation>
    </message>
    <message>
        <source>The tracking simulator has ended</source>
        <translation>トラッキングシミュレーターが終了しました</translation>
    </message>
    <message>
        <source>Backend %1 | %2</source>
        <translation>バックエンド %1 | %2</translation>
    </message>
    <message>
        <source>, %1 torn</source>
        <translation>、欠損 %1</translation>
    </message>
    <message>
        <source>, %1 from elsewhere refused</source>
        <translation>、他からの %1 件を拒否</translation>
    </message>
    <message>
        <source>, recording to %1</source>
        <translation>、%1 に記録中</translation>
    </message>
    <message>
        <source>Replay of %1, %2 lines</source>
        <translation>%1 を再生中、%2 行</translation>
    </message>
    <message>
        <source>no data</source>
        <translation>データなし</translation>
    </message>
    <message>
        <source>tracking, but no data for %1 s</source>
        <translation>トラッキング中ですが %1 秒間データがありません</translation>
    </message>
    <message>
        <source>Data %1 frames/s</source>
        <translation>データ %1 フレーム/秒</translation>
    </message>
    <message>
        <source>not tracking</source>
        <translation>トラッキング停止中</translation>
    </message>
</context>
<context>
    <name>TrafficModel</name>
    <message>
        <source>Outcome</source>
        <translation>結果</translation>
    </message>
    <message>
        <source>Request</source>
        <translation>要求</translation>
    </message>
    <message>
        <source>Reply</source>
        <translation>応答</translation>
    </message>
    <message>
        <source>Times</source>
        <translation>回数</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>時刻</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>拒否</translation>
    </message>
    <message>
        <source>not sent</source>
        <translation>未送信</translation>
    </message>
    <message>
        <source>unknown outcome</source>
        <translation>結果不明</translation>
    </message>
</context>
<context>
    <name>TrafficPane</name>
    <message>
        <source>Show &amp;queries</source>
        <translation>問い合わせを表示(&amp;Q)</translation>
    </message>
    <message>
        <source>Controller traffic</source>
        <translation>コントローラー通信</translation>
    </message>
    <message>
        <source>Con&amp;troller traffic</source>
        <translation>コントローラーとの通信(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>コピー(&amp;C)</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>消去(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Save...</source>
        <translation>保存(&amp;S)...</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Recording</source>
        <translation>記録</translation>
    </message>
    <message>
        <source>%1 exists. Shall it be overwritten?</source>
        <translation>%1 は存在します。上書きしますか?</translation>
    </message>
</context>
</TS>
