<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP">
<context>
    <name>AbcMatchingDialog</name>
    <message>
        <source>&lt;b&gt;&lt;font color=red&gt;No Measurement Tool available!&lt;/font&gt;&lt;/b&gt;</source>
        <translation>&lt;b&gt;&lt;font color=red&gt;使用できる測定ツールがありません！&lt;/font&gt;&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Open reference points file...</source>
        <translation>基準点ファイルを開く</translation>
    </message>
    <message>
        <source>Text files (*.txt);; All files (*)</source>
        <translation>テキストファイル (*.txt);; すべてのファイル (*)</translation>
    </message>
    <message>
        <source>Error loading file</source>
        <translation>読み込みエラー</translation>
    </message>
    <message>
        <source>Unknown format !</source>
        <translation>不明な形式です。</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Nothing to save.</source>
        <translation>保存する点がありません。</translation>
    </message>
    <message>
        <source>Save reference points</source>
        <translation>基準点を保存</translation>
    </message>
    <message>
        <source>Text file (*.txt)</source>
        <translation>テキストファイル (*.txt)</translation>
    </message>
    <message>
        <source>x[mm]</source>
        <translation>x[mm]</translation>
    </message>
    <message>
        <source>y[mm]</source>
        <translation>y[mm]</translation>
    </message>
    <message>
        <source>z[mm]</source>
        <translation>z[mm]</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>エラー</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a number!</source>
        <translation>「%1」は数値ではありません。</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Remove row %1?</source>
        <translation>%1 行目を削除しますか？</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Nothing selected.</source>
        <translation>何も選択されていません。</translation>
    </message>
    <message>
        <source>Remove all measured points?</source>
        <translation>測定点をすべて削除しますか？</translation>
    </message>
    <message>
        <source>It is not a regular file.</source>
        <translation>通常のファイルではありません。</translation>
    </message>
    <message>
        <source>More than %1 points do not fit into the table.</source>
        <translation>表に入る点は %1 個までです。</translation>
    </message>
    <message>
        <source>The file &apos;%1&apos; could not be written:
%2</source>
        <translation>ファイル「%1」に書き込めませんでした:
%2</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 は既に存在します。
置き換えますか?</translation>
    </message>
</context>
<context>
    <name>AbcMatchingDialogClass</name>
    <message>
        <source>Room Adjustment Based On Reference Points</source>
        <translation>基準点によるルーム調整</translation>
    </message>
    <message>
        <source>Room adjustment based on reference points</source>
        <translation>基準点によるルーム調整</translation>
    </message>
    <message>
        <source>Reference points</source>
        <translation>基準点</translation>
    </message>
    <message>
        <source>reference points</source>
        <translation>基準点</translation>
    </message>
    <message>
        <source>Preserve order of points</source>
        <translation>点の順序を保つ</translation>
    </message>
    <message>
        <source>&amp;preserve order of points</source>
        <translation>点の順序を保つ(&amp;P)</translation>
    </message>
    <message>
        <source>Load reference points from text file</source>
        <translation>基準点をテキストファイルから読み込む</translation>
    </message>
    <message>
        <source>&amp;Load</source>
        <translation>読込(&amp;L)</translation>
    </message>
    <message>
        <source>Save reference points to text file</source>
        <translation>基準点をテキストファイルに保存する</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>保存(&amp;S)</translation>
    </message>
    <message>
        <source>Add new reference point</source>
        <translation>基準点を追加する</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>追加(&amp;A)</translation>
    </message>
    <message>
        <source>Remove selected point from table</source>
        <translation>選択した点を表から削除する</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Measured points</source>
        <translation>測定点</translation>
    </message>
    <message>
        <source>measured points</source>
        <translation>測定点</translation>
    </message>
    <message>
        <source>Select Measurement Tool</source>
        <translation>測定ツールを選択する</translation>
    </message>
    <message>
        <source>Measurement &amp;Tool:</source>
        <translation>測定ツール(&amp;T):</translation>
    </message>
    <message>
        <source>Tracked status of selected Measurement Tool</source>
        <translation>選択した測定ツールの追跡状態</translation>
    </message>
    <message>
        <source>Start measuring</source>
        <translation>測定を開始する</translation>
    </message>
    <message>
        <source>&amp;Measure</source>
        <translation>測定(&amp;M)</translation>
    </message>
    <message>
        <source>Progress of measurement</source>
        <translation>測定の進み具合</translation>
    </message>
    <message>
        <source>Replace selected point by measuring</source>
        <translation>選択した点を測定し直して置き換える</translation>
    </message>
    <message>
        <source>&amp;replace selected</source>
        <translation>選択点を置換(&amp;R)</translation>
    </message>
    <message>
        <source>Remove selected point</source>
        <translation>選択した点を削除する</translation>
    </message>
    <message>
        <source>Clear table</source>
        <translation>表を消去する</translation>
    </message>
    <message>
        <source>&amp;Clear</source>
        <translation>消去(&amp;C)</translation>
    </message>
    <message>
        <source>Transformation of the room coordinate system</source>
        <translation>ルーム座標系の変換</translation>
    </message>
    <message>
        <source>transformation</source>
        <translation>変換</translation>
    </message>
    <message>
        <source>Show help</source>
        <translation>ヘルプを表示する</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>Accept calculated transformation and close dialog</source>
        <translation>計算した変換を採用してダイアログを閉じる</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Discard transformation and close dialog</source>
        <translation>変換を破棄してダイアログを閉じる</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>CoarseAdjustmentClass</name>
    <message>
        <source>CoarseAdjustment</source>
        <translation>粗調整</translation>
    </message>
    <message>
        <source>Adjust room coordinate system by rotating around axes</source>
        <translation>軸まわりの回転でルーム座標系を調整する</translation>
    </message>
    <message>
        <source>Camera coordinates</source>
        <translation>カメラ座標</translation>
    </message>
    <message>
        <source>Assign axes to room directions:</source>
        <translation>軸をルームの方向に割り当てる:</translation>
    </message>
    <message>
        <source>Change the vertical axis to rotate room coordinate system.</source>
        <translation>垂直の軸を変えてルーム座標系を回転する。</translation>
    </message>
    <message>
        <source>-z</source>
        <translation>-z</translation>
    </message>
    <message>
        <source>x</source>
        <translation>x</translation>
    </message>
    <message>
        <source>The current room coordinate system.</source>
        <translation>現在のルーム座標系。</translation>
    </message>
    <message>
        <source>Change the horizontal axis to rotate room coordinate system.</source>
        <translation>水平の軸を変えてルーム座標系を回転する。</translation>
    </message>
    <message>
        <source>z</source>
        <translation>z</translation>
    </message>
    <message>
        <source>-y</source>
        <translation>-y</translation>
    </message>
    <message>
        <source>Reset room coordinate system to default values</source>
        <translation>ルーム座標系を既定値に戻す</translation>
    </message>
    <message>
        <source>&amp;Reset</source>
        <translation>既定値(&amp;R)</translation>
    </message>
</context>
<context>
    <name>CooTrans</name>
    <message>
        <source>Open matching dialog</source>
        <translation>基準点のダイアログを開く</translation>
    </message>
    <message>
        <source>Not available: the controller has no licence for the Measurement Tool</source>
        <translation>使用不可: コントローラーに測定ツールのライセンスがありません</translation>
    </message>
    <message>
        <source>Not available: the controller did not say whether it has a licence for the Measurement Tool</source>
        <translation>使用不可: 測定ツールのライセンスの有無をコントローラーから取得できませんでした</translation>
    </message>
    <message>
        <source>Scaling</source>
        <translation>スケール</translation>
    </message>
    <message>
        <source>Scaling (+/- 5%)</source>
        <translation>スケール (+/- 5%)</translation>
    </message>
    <message>
        <source>You have unsaved data. Save changes?

(If yes press &apos;Apply&apos; and re-open matching)</source>
        <translation>未適用の変更があります。残しますか？

(残す場合は「適用」を押してからもう一度開始してください)</translation>
    </message>
    <message>
        <source>Room Adjustment</source>
        <translation>ルーム調整</translation>
    </message>
    <message>
        <source>Long axes</source>
        <translation>軸を長く表示</translation>
    </message>
    <message>
        <source>Show XY plane</source>
        <translation>XY 平面を表示</translation>
    </message>
    <message>
        <source>Show YZ plane</source>
        <translation>YZ 平面を表示</translation>
    </message>
    <message>
        <source>Show XZ plane</source>
        <translation>XZ 平面を表示</translation>
    </message>
</context>
<context>
    <name>CooTransClass</name>
    <message>
        <source>CooTrans</source>
        <translation>微調整</translation>
    </message>
    <message>
        <source>Vector for zero point offset</source>
        <translation>原点オフセットのベクトル</translation>
    </message>
    <message>
        <source>Zero point offset</source>
        <translation>原点オフセット</translation>
    </message>
    <message>
        <source>x [mm]</source>
        <translation>x [mm]</translation>
    </message>
    <message>
        <source>y [mm]</source>
        <translation>y [mm]</translation>
    </message>
    <message>
        <source>z [mm]</source>
        <translation>z [mm]</translation>
    </message>
    <message>
        <source>Reset x, y, z to 0.00</source>
        <translation>x, y, z を 0.00 に戻す</translation>
    </message>
    <message>
        <source>Reset vector</source>
        <translation>オフセットを戻す</translation>
    </message>
    <message>
        <source>Rotation angles:
rx (eta)    range [-179 deg .. +180 deg]
ry (theta) range [-  90 deg .. +  90 deg]
rz (phi)    range [-179 deg .. +180 deg]</source>
        <translation>回転角:
rx (eta)    範囲 [-179 度 .. +180 度]
ry (theta) 範囲 [-  90 度 .. +  90 度]
rz (phi)    範囲 [-179 度 .. +180 度]</translation>
    </message>
    <message>
        <source>Rotation angles</source>
        <translation>回転角</translation>
    </message>
    <message>
        <source>rx [deg]</source>
        <translation>rx [度]</translation>
    </message>
    <message>
        <source>ry [deg]</source>
        <translation>ry [度]</translation>
    </message>
    <message>
        <source>rz [deg]</source>
        <translation>rz [度]</translation>
    </message>
    <message>
        <source>Reset rx, ry, rz to 0.00</source>
        <translation>rx, ry, rz を 0.00 に戻す</translation>
    </message>
    <message>
        <source>Reset angles</source>
        <translation>角度を戻す</translation>
    </message>
    <message>
        <source>Scaling factor</source>
        <translation>スケール係数</translation>
    </message>
    <message>
        <source>Scaling (+/- 5%)</source>
        <translation>スケール (+/- 5%)</translation>
    </message>
    <message>
        <source>factor</source>
        <translation>係数</translation>
    </message>
    <message>
        <source>Reset scaling factor to 1.000</source>
        <translation>スケール係数を 1.000 に戻す</translation>
    </message>
    <message>
        <source>Reset scaling</source>
        <translation>スケールを戻す</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;&lt;span style=&quot; font-size:8pt;&quot;&gt;The transformation values rotate, shift, scale the room coordinate system relative to the original one&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;&lt;span style=&quot; font-size:8pt;&quot;&gt;これらの値は、元の座標系に対してルーム座標系を回転・移動・拡大縮小します&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Adjust based on reference points</source>
        <translation>基準点による調整</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>開始(&amp;S)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>やり直す</translation>
    </message>
    <message>
        <source>Change view position</source>
        <translation>視点の位置を変える</translation>
    </message>
    <message>
        <source>View position</source>
        <translation>視点の位置</translation>
    </message>
    <message>
        <source>Change view orientation</source>
        <translation>視点の向きを変える</translation>
    </message>
    <message>
        <source>View orientation</source>
        <translation>視点の向き</translation>
    </message>
    <message>
        <source>show XY</source>
        <translation>XY を表示</translation>
    </message>
    <message>
        <source>show YZ</source>
        <translation>YZ を表示</translation>
    </message>
    <message>
        <source>show XZ</source>
        <translation>XZ を表示</translation>
    </message>
    <message>
        <source>long axes</source>
        <translation>軸を長く表示</translation>
    </message>
    <message>
        <source>Show help dialog</source>
        <translation>ヘルプを表示する</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>Adjust 3D view</source>
        <translation>3D 表示を合わせる</translation>
    </message>
    <message>
        <source>Adjust view</source>
        <translation>表示を合わせる</translation>
    </message>
    <message>
        <source>Reset 3D view</source>
        <translation>3D 表示を最初の状態に戻す</translation>
    </message>
    <message>
        <source>Reset view</source>
        <translation>表示を戻す</translation>
    </message>
</context>
<context>
    <name>HelpDialog</name>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
    <message>
        <source>Control of the graphic view</source>
        <translation>グラフィック表示の操作</translation>
    </message>
    <message>
        <source>panning:</source>
        <translation>平行移動:</translation>
    </message>
    <message>
        <source>rotating:</source>
        <translation>回転:</translation>
    </message>
    <message>
        <source>zoom in / out:</source>
        <translation>拡大 / 縮小:</translation>
    </message>
    <message>
        <source>Ctrl + left mouse button</source>
        <translation>Ctrl + マウス左ボタン</translation>
    </message>
    <message>
        <source>Ctrl + right mouse button</source>
        <translation>Ctrl + マウス右ボタン</translation>
    </message>
    <message>
        <source>Ctrl + mouse wheel&lt;br&gt;
Shift + left mouse button</source>
        <translation>Ctrl + マウスホイール&lt;br&gt;
Shift + マウス左ボタン</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>閉じる(&amp;X)</translation>
    </message>
    <message>
        <source>Alt+X</source>
        <translation>Alt+X</translation>
    </message>
</context>
<context>
    <name>MatchingHelpClass</name>
    <message>
        <source>Room Adjustment Based On Reference Points Help</source>
        <translation>基準点によるルーム調整のヘルプ</translation>
    </message>
    <message>
        <source>Description how to do the room adjustment based on reference points</source>
        <translation>基準点によるルーム調整の手順</translation>
    </message>
    <message>
        <source>&lt;h3 style=&quot;margin-top:0px; margin-bottom:6px;&quot;&gt;How to carry out room adjustment based of reference points&lt;/h3&gt;&lt;h4 style=&quot;margin-top:6px; margin-bottom:2px;&quot;&gt;Purpose:&lt;/h4&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;The purpose of the coordinate transformation is to convert the origin and orientation of the initial ZTK tracking system coordinate system (indicated with &amp;quot;O&amp;quot;) into a coordinate system given by a certain object (indicated with &amp;quot;T&amp;quot;). The effect will be that all 6DOF measurements of the targets will be delivered with reference to the object&amp;#8217;s coordinate system (T).&lt;/p&gt;</source>
        <translation>&lt;h3 style=&quot;margin-top:0px; margin-bottom:6px;&quot;&gt;基準点によるルーム調整の手順&lt;/h3&gt;&lt;h4 style=&quot;margin-top:6px; margin-bottom:2px;&quot;&gt;目的:&lt;/h4&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;この座標変換は、ZTK トラッキングシステムの最初の座標系（「O」と表示）の原点と向きを、ある物体で決まる座標系（「T」と表示）に変えるものです。変換後は、ターゲットの 6DOF 測定値がすべてその物体の座標系（T）で出力されます。&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;h4 style=&quot;margin-top:6px; margin-bottom:2px;&quot;&gt;Step 1:&lt;/h4&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;Add reference points of the object&apos;s coordinate system (T) by manually entering the coordinates into the table &apos;reference points&apos; using the button &apos;add&apos;&lt;br/&gt;or load the coordinates from a text file using the button &apos;load&apos;. The text file should be composed according to the following format:&lt;/p&gt;</source>
        <translation>&lt;h4 style=&quot;margin-top:6px; margin-bottom:2px;&quot;&gt;手順 1:&lt;/h4&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;物体の座標系（T）での基準点を、「追加」ボタンで「基準点」の表に手入力するか、&lt;br/&gt;「読込」ボタンでテキストファイルから読み込みます。テキストファイルの形式は次のとおりです:&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;ul style=&quot;margin-top:0px; margin-bottom:4px; margin-left:0px;&quot;&gt;&lt;li&gt;1. Column: Number of the reference point&lt;/li&gt;&lt;li&gt;2. Column: X coordinate of the reference point&lt;/li&gt;&lt;li&gt;3. Column: Y coordinate of the reference point&lt;/li&gt;&lt;li&gt;4. Column: Z coordinate of the reference point&lt;/li&gt;&lt;li&gt;The columns are separated by one or more whitespaces&lt;/li&gt;&lt;/ul&gt;</source>
        <translation>&lt;ul style=&quot;margin-top:0px; margin-bottom:4px; margin-left:0px;&quot;&gt;&lt;li&gt;1 列目: 基準点の番号&lt;/li&gt;&lt;li&gt;2 列目: 基準点の X 座標&lt;/li&gt;&lt;li&gt;3 列目: 基準点の Y 座標&lt;/li&gt;&lt;li&gt;4 列目: 基準点の Z 座標&lt;/li&gt;&lt;li&gt;列は 1 個以上の空白で区切ります&lt;/li&gt;&lt;/ul&gt;</translation>
    </message>
    <message>
        <source>&lt;h4 style=&quot;margin-top:6px; margin-bottom:2px;&quot;&gt;Step 2:&lt;/h4&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;Use a calibrated Measurement Tool inside the ZTK tracking system and touch the points on the object which directly relate to the reference points defined in step 1.&lt;/p&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;Each measurement can be started by:&lt;/p&gt;&lt;ul style=&quot;margin-top:0px; margin-bottom:4px; margin-left:0px;&quot;&gt;&lt;li&gt;clicking the button &apos;Measure&apos;&lt;/li&gt;&lt;li&gt;clicking a button of the Measurement Tool&lt;/li&gt;&lt;li&gt;using the measurement start simulation of the Measurement Tool itself&lt;/li&gt;&lt;li&gt;clicking a button of an assigned Wandstick&lt;/li&gt;&lt;/ul&gt;&lt;h4 style=&quot;margin-top:6px; margin-bottom:2px;&quot;&gt;Step 3:&lt;/h4&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;After having measured all reference points the result is displayed in the textbox &apos;transformation&apos;.&lt;/p&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;Pressing &apos;OK&apos; accepts this transformation and closes the dialogue box.&lt;/p&gt;</source>
        <translation>&lt;h4 style=&quot;margin-top:6px; margin-bottom:2px;&quot;&gt;手順 2:&lt;/h4&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;ZTK トラッキングシステムの校正済み測定ツールで、手順 1 の基準点に対応する物体上の点に触れます。&lt;/p&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;測定は次のいずれかで開始します:&lt;/p&gt;&lt;ul style=&quot;margin-top:0px; margin-bottom:4px; margin-left:0px;&quot;&gt;&lt;li&gt;「測定」ボタンを押す&lt;/li&gt;&lt;li&gt;測定ツールのボタンを押す&lt;/li&gt;&lt;li&gt;測定ツール自体の測定開始シミュレーションを使う&lt;/li&gt;&lt;li&gt;割り当てた Wandstick のボタンを押す&lt;/li&gt;&lt;/ul&gt;&lt;h4 style=&quot;margin-top:6px; margin-bottom:2px;&quot;&gt;手順 3:&lt;/h4&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;すべての基準点を測定すると、結果が「変換」の欄に表示されます。&lt;/p&gt;&lt;p style=&quot;margin-top:0px; margin-bottom:4px;&quot;&gt;「OK」を押すとこの変換が採用され、ダイアログが閉じます。&lt;/p&gt;</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>閉じる(&amp;X)</translation>
    </message>
</context>
<context>
    <name>RoomAdjustmentDlg2g</name>
    <message>
        <source>Camera</source>
        <translation>カメラ</translation>
    </message>
    <message>
        <source>x [mm]</source>
        <translation>x [mm]</translation>
    </message>
    <message>
        <source>y [mm]</source>
        <translation>y [mm]</translation>
    </message>
    <message>
        <source>z [mm]</source>
        <translation>z [mm]</translation>
    </message>
    <message>
        <source>&lt;b&gt;&lt;font color=red&gt;Tracking is not available!&lt;/font&gt;&lt;/b&gt;</source>
        <translation>&lt;b&gt;&lt;font color=red&gt;トラッキングは使用できません！&lt;/font&gt;&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Room Adjustment</source>
        <translation>ルーム調整</translation>
    </message>
    <message>
        <source>Discard changes?</source>
        <translation>変更を破棄しますか？</translation>
    </message>
</context>
<context>
    <name>RoomAdjustmentDlgClass</name>
    <message>
        <source>Room Adjustment</source>
        <translation>ルーム調整</translation>
    </message>
    <message>
        <source>remove tab</source>
        <translation>remove tab</translation>
    </message>
    <message>
        <source>Accept changes and close dialog</source>
        <translation>変更を適用してダイアログを閉じる</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Apply changes</source>
        <translation>変更を適用する</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>適用(&amp;A)</translation>
    </message>
    <message>
        <source>Discard changes and close dialog</source>
        <translation>変更を破棄してダイアログを閉じる</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>RoomAdjustmentModule2g</name>
    <message>
        <source>GUI Room Adjustment</source>
        <translation>GUI ルーム調整</translation>
    </message>
    <message>
        <source>&amp;Calibration</source>
        <translation>キャリブレーション(&amp;C)</translation>
    </message>
    <message>
        <source>Room a&amp;djustment</source>
        <translation>ルーム調整(&amp;D)</translation>
    </message>
    <message>
        <source>Shift+F5</source>
        <translation>Shift+F5</translation>
    </message>
    <message>
        <source>Perform the room adjustment incl. COOTrans</source>
        <translation>COOTrans を含むルーム調整を行う</translation>
    </message>
    <message>
        <source>Adjust the room coordinate system</source>
        <translation>ルーム座標系を調整する</translation>
    </message>
</context>
<context>
    <name>SearchWindow</name>
    <message>
        <source>Search for the order in which the points were measured</source>
        <translation>測定点の順序の検索</translation>
    </message>
    <message>
        <source>Orders of the measured points are compared to find the one that fits best to the reference points.</source>
        <translation>基準点に最もよく合う順序を見つけるため、測定点の順序を比較しています。</translation>
    </message>
    <message>
        <source>Orders fitted so far:</source>
        <translation>これまでに比較した順序:</translation>
    </message>
    <message>
        <source>Best residual error so far:</source>
        <translation>これまでの最小残差:</translation>
    </message>
    <message>
        <source>End the search without a result</source>
        <translation>結果なしで検索を終了</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>none fits yet</source>
        <translation>まだありません</translation>
    </message>
</context>
<context>
    <name>xyzWidget</name>
    <message>
        <source>X :</source>
        <translation>X :</translation>
    </message>
    <message>
        <source>Y :</source>
        <translation>Y :</translation>
    </message>
    <message>
        <source>Z :</source>
        <translation>Z :</translation>
    </message>
</context>
</TS>
