<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>Actions</name>
    <message>
        <source>&amp;New from Template…</source>
        <translation>テンプレートから新規(&amp;N)…</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>開く(&amp;O)…</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>保存(&amp;S)</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>名前を付けて保存(&amp;A)…</translation>
    </message>
    <message>
        <source>&amp;Revert to Saved</source>
        <translation>保存時の状態に戻す(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>書き出し(&amp;E)…</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>やり直す(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Duplicate</source>
        <translation>複製(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>削除(&amp;R)</translation>
    </message>
    <message>
        <source>Select &amp;Nothing</source>
        <translation>選択を解除(&amp;N)</translation>
    </message>
    <message>
        <source>Copy &amp;Frame</source>
        <translation>フレームをコピー(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>再生(&amp;P)</translation>
    </message>
    <message>
        <source>To the &amp;Start</source>
        <translation>先頭へ(&amp;S)</translation>
    </message>
    <message>
        <source>To the &amp;End</source>
        <translation>末尾へ(&amp;E)</translation>
    </message>
    <message>
        <source>One Frame &amp;Back</source>
        <translation>1フレーム戻る(&amp;B)</translation>
    </message>
    <message>
        <source>One Frame &amp;Forward</source>
        <translation>1フレーム進む(&amp;F)</translation>
    </message>
    <message>
        <source>One Second Back</source>
        <translation>1秒戻る</translation>
    </message>
    <message>
        <source>One Second Forward</source>
        <translation>1秒進む</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>拡大(&amp;I)</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>縮小(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Actual Pixels</source>
        <translation>実際のピクセル(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Fit</source>
        <translation>全体を表示(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Safe Areas</source>
        <translation>セーフエリア(&amp;S)</translation>
    </message>
    <message>
        <source>F&amp;ull Screen</source>
        <translation>フルスクリーン(&amp;U)</translation>
    </message>
    <message>
        <source>Fin&amp;dings</source>
        <translation>検査結果(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Changes by Others</source>
        <translation>他からの変更(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;JSON</source>
        <translation>JSON(&amp;J)</translation>
    </message>
    <message>
        <source>As the &amp;Desktop</source>
        <translation>デスクトップに合わせる(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>ダーク(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>ライト(&amp;L)</translation>
    </message>
    <message>
        <source>Add &amp;Scene</source>
        <translation>シーンを追加(&amp;S)</translation>
    </message>
    <message>
        <source>Add &amp;Text</source>
        <translation>テキストを追加(&amp;T)</translation>
    </message>
    <message>
        <source>Add &amp;Device</source>
        <translation>デバイスを追加(&amp;D)</translation>
    </message>
    <message>
        <source>Add &amp;Image</source>
        <translation>画像を追加(&amp;I)</translation>
    </message>
    <message>
        <source>Add &amp;Video</source>
        <translation>ビデオを追加(&amp;V)</translation>
    </message>
    <message>
        <source>Add S&amp;hape</source>
        <translation>図形を追加(&amp;H)</translation>
    </message>
    <message>
        <source>Add &amp;Fill</source>
        <translation>塗りを追加(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Commands…</source>
        <translation>コマンド(&amp;C)…</translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts…</source>
        <translation>キーボードショートカット(&amp;K)…</translation>
    </message>
    <message>
        <source>Motion &amp;Presets</source>
        <translation>モーションプリセット(&amp;P)</translation>
    </message>
    <message>
        <source>Set up &amp;Agents…</source>
        <translation>エージェントの設定(&amp;A)…</translation>
    </message>
    <message>
        <source>Check for &amp;Updates…</source>
        <translation>アップデートを確認(&amp;U)…</translation>
    </message>
    <message>
        <source>&amp;About Tavix</source>
        <translation>Tavixについて(&amp;A)</translation>
    </message>
</context>
<context>
    <name>AgentSheet</name>
    <message>
        <source>Install Globally</source>
        <translation>全プロジェクトに導入</translation>
    </message>
    <message>
        <source>Install for a Project…</source>
        <translation>プロジェクトに導入…</translation>
    </message>
    <message>
        <source>Set up Agents</source>
        <translation>エージェントの設定</translation>
    </message>
    <message>
        <source>Agents write and mend compositions with the command tavix. Choose those that may use it.</source>
        <translation>エージェントは tavix コマンドで構成を作成・修正します。使用を許可するものを選んでください。</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>%1 (not found)</source>
        <translation>%1（見つかりません）</translation>
    </message>
    <message>
        <source>Installing…</source>
        <translation>インストール中…</translation>
    </message>
    <message>
        <source>Install for a Project</source>
        <translation>プロジェクトに導入</translation>
    </message>
</context>
<context>
    <name>ChangesPanel</name>
    <message>
        <source>Added</source>
        <translation>追加</translation>
    </message>
    <message>
        <source>Removed</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Moved</source>
        <translation>移動</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>変更</translation>
    </message>
    <message>
        <source>What agents and other programs change in the file while it is open here is listed here.</source>
        <translation>ファイルを開いている間にエージェントや他のプログラムが加えた変更がここに表示されます。</translation>
    </message>
    <message>
        <source>Take Back</source>
        <translation>取り消す</translation>
    </message>
    <message>
        <source>Changes by other programs</source>
        <translation>他のプログラムによる変更</translation>
    </message>
    <message>
        <source>Takes back all that was changed together with what is chosen.</source>
        <translation>選択した項目と同時に行われた変更をすべて取り消します。</translation>
    </message>
    <message>
        <source>1 change</source>
        <translation>変更1件</translation>
    </message>
    <message>
        <source>%1 changes</source>
        <translation>変更%1件</translation>
    </message>
    <message>
        <source>%1 at %2</source>
        <translation>%2 に%1</translation>
    </message>
    <message>
        <source>Take Back Changes</source>
        <translation>変更を取り消す</translation>
    </message>
</context>
<context>
    <name>CommandPalette</name>
    <message>
        <source>Search commands</source>
        <translation>コマンドを検索</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>コマンド</translation>
    </message>
</context>
<context>
    <name>CurveEditor</name>
    <message>
        <source>Curve</source>
        <translation>カーブ</translation>
    </message>
</context>
<context>
    <name>Drops</name>
    <message>
        <source>Add Files</source>
        <translation>ファイルを追加</translation>
    </message>
</context>
<context>
    <name>EditorView</name>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>書き出し…</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>検査結果</translation>
    </message>
    <message>
        <source>Edited</source>
        <translation>編集済み</translation>
    </message>
</context>
<context>
    <name>EngineProgram</name>
    <message>
        <source>The command tavix is not beside this program, nor along the search path; install Tavix again.</source>
        <translation>tavix コマンドがこのプログラムの隣にも検索パスにもありません。Tavixを再インストールしてください。</translation>
    </message>
</context>
<context>
    <name>ExportRow</name>
    <message>
        <source>Export finished</source>
        <translation>書き出しが完了しました</translation>
    </message>
    <message>
        <source>Export failed</source>
        <translation>書き出しに失敗しました</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>フォルダーで表示</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完了</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>書き出し</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1秒</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1分</translation>
    </message>
    <message>
        <source>%1 waits</source>
        <translation>%1 は待機中</translation>
    </message>
    <message>
        <source>Exported %1.</source>
        <translation>%1 を書き出しました。</translation>
    </message>
    <message>
        <source>%1 could not be exported.</source>
        <translation>%1 を書き出せませんでした。</translation>
    </message>
    <message>
        <source>%1 was stopped.</source>
        <translation>%1 を停止しました。</translation>
    </message>
    <message>
        <source>Exporting %1, about %2 left</source>
        <translation>%1 を書き出し中、残り約%2</translation>
    </message>
    <message>
        <source>Exporting %1…</source>
        <translation>%1 を書き出し中…</translation>
    </message>
</context>
<context>
    <name>ExportSheet</name>
    <message>
        <source>Export</source>
        <translation>書き出し</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>ビデオ</translation>
    </message>
    <message>
        <source>Animated GIF</source>
        <translation>アニメーションGIF</translation>
    </message>
    <message>
        <source>As the Film</source>
        <translation>作品と同じ</translation>
    </message>
    <message>
        <source>Fast</source>
        <translation>速い</translation>
    </message>
    <message>
        <source>Balanced</source>
        <translation>標準</translation>
    </message>
    <message>
        <source>Best</source>
        <translation>最高</translation>
    </message>
    <message>
        <source>Usual for the Codec</source>
        <translation>コーデックの標準</translation>
    </message>
    <message>
        <source>Quality</source>
        <translation>品質</translation>
    </message>
    <message>
        <source>Bit Rate</source>
        <translation>ビットレート</translation>
    </message>
    <message>
        <source> Mbit/s</source>
        <translation> Mbit/s</translation>
    </message>
    <message>
        <source>&amp;Format</source>
        <translation>形式(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Codec</source>
        <translation>コーデック(&amp;C)</translation>
    </message>
    <message>
        <source>F&amp;ile</source>
        <translation>ファイル(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Size</source>
        <translation>サイズ(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Effort</source>
        <translation>処理(&amp;E)</translation>
    </message>
    <message>
        <source>At the same rate: quicker, or better pictures.</source>
        <translation>同じレートで、速さか画質を優先します。</translation>
    </message>
    <message>
        <source>&amp;Keep</source>
        <translation>レート(&amp;K)</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>書き出し…</translation>
    </message>
    <message>
        <source>%1 × %2 pixels, %3 frames a second, %4 s, %5</source>
        <translation>%1 × %2 ピクセル、毎秒%3フレーム、%4秒、%5</translation>
    </message>
    <message>
        <source>with sound</source>
        <translation>音声あり</translation>
    </message>
    <message>
        <source>no sound</source>
        <translation>音声なし</translation>
    </message>
    <message>
        <source>Estimating…</source>
        <translation>見積もり中…</translation>
    </message>
    <message>
        <source>About %1, in about %2 on this machine</source>
        <translation>約%1（このマシンで約%2）</translation>
    </message>
</context>
<context>
    <name>FindingsPanel</name>
    <message>
        <source>Error</source>
        <translation>エラー</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Nothing is found.</source>
        <translation>問題は見つかりません。</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>修正</translation>
    </message>
    <message>
        <source>Repair All</source>
        <translation>すべて修正</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>検査結果</translation>
    </message>
    <message>
        <source>Mends all that is certain and changes nothing that was meant.</source>
        <translation>確実なものだけを修正し、意図した内容は変えません。</translation>
    </message>
    <message>
        <source>Draws every frame small and looks for flashes, black or frozen stretches and unreadable text.</source>
        <translation>全フレームを小さく描画し、点滅、黒い区間や静止区間、読めない文字を調べます。</translation>
    </message>
    <message>
        <source>Repair Finding</source>
        <translation>検査結果を修正</translation>
    </message>
    <message>
        <source>1 error</source>
        <translation>エラー1件</translation>
    </message>
    <message>
        <source>%1 errors</source>
        <translation>エラー%1件</translation>
    </message>
    <message>
        <source>1 warning</source>
        <translation>警告1件</translation>
    </message>
    <message>
        <source>%1 warnings</source>
        <translation>警告%1件</translation>
    </message>
    <message>
        <source>%1 muted</source>
        <translation>非表示%1件</translation>
    </message>
    <message>
        <source>Looking…</source>
        <translation>検査中…</translation>
    </message>
    <message>
        <source>Stop (%1 %)</source>
        <translation>停止（%1 %）</translation>
    </message>
    <message>
        <source>Check Frames</source>
        <translation>フレームを検査</translation>
    </message>
</context>
<context>
    <name>GalleryWindow</name>
    <message>
        <source>Motion Presets</source>
        <translation>モーションプリセット</translation>
    </message>
</context>
<context>
    <name>GradientBar</name>
    <message>
        <source>Stops of the gradient</source>
        <translation>グラデーションの分岐点</translation>
    </message>
    <message>
        <source>Click beside the stops to add one, Delete takes it away.</source>
        <translation>分岐点の横をクリックで追加、Deleteで削除します。</translation>
    </message>
</context>
<context>
    <name>Inspector</name>
    <message>
        <source>%1 in hexadecimal digits</source>
        <translation>%1（16進数）</translation>
    </message>
    <message>
        <source>%1, set by a preset</source>
        <translation>%1（プリセットの値）</translation>
    </message>
    <message>
        <source>Add %1</source>
        <translation>%1を追加</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>角度</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>自動</translation>
    </message>
    <message>
        <source>Choose a colour, here or anywhere on the screen</source>
        <translation>ここまたは画面上の好きな場所から色を選びます</translation>
    </message>
    <message>
        <source>Choose a file</source>
        <translation>ファイルを選択</translation>
    </message>
    <message>
        <source>Choose a file…</source>
        <translation>ファイルを選択…</translation>
    </message>
    <message>
        <source>Clips (*.mp4 *.mov *.webm *.mkv)</source>
        <translation>クリップ (*.mp4 *.mov *.webm *.mkv)</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>カラー</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>デフォルト</translation>
    </message>
    <message>
        <source>Fonts (*.ttf *.otf *.ttc)</source>
        <translation>フォント (*.ttf *.otf *.ttc)</translation>
    </message>
    <message>
        <source>Gradient</source>
        <translation>グラデーション</translation>
    </message>
    <message>
        <source>Hand-made</source>
        <translation>カスタム</translation>
    </message>
    <message>
        <source>Intensity</source>
        <translation>強さ</translation>
    </message>
    <message>
        <source>Keyframe of %1 before</source>
        <translation>%1の前のキーフレーム</translation>
    </message>
    <message>
        <source>Keyframe of %1 here</source>
        <translation>ここに%1のキーフレーム</translation>
    </message>
    <message>
        <source>Mixed</source>
        <translation>複数の値</translation>
    </message>
    <message>
        <source>Next keyframe of %1</source>
        <translation>%1の次のキーフレーム</translation>
    </message>
    <message>
        <source>No file</source>
        <translation>ファイルなし</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>Pictures (*.png *.jpg *.jpeg *.webp *.heic)</source>
        <translation>画像 (*.png *.jpg *.jpeg *.webp *.heic)</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>プリセット</translation>
    </message>
    <message>
        <source>Preset&apos;s own</source>
        <translation>プリセットの値</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>%1を削除</translation>
    </message>
    <message>
        <source>Reset %1 to its default</source>
        <translation>%1をデフォルトに戻す</translation>
    </message>
    <message>
        <source>Set by the layer&apos;s motion preset; a change here is kept in its place.</source>
        <translation>レイヤーのモーションプリセットの値です。ここで変更すると、その値が優先されます。</translation>
    </message>
    <message>
        <source>Sounds (*.mp3 *.m4a *.wav *.flac *.ogg *.aac)</source>
        <translation>サウンド (*.mp3 *.m4a *.wav *.flac *.ogg *.aac)</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>速度</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>テキスト</translation>
    </message>
    <message>
        <source>The theme&apos;s</source>
        <translation>テーマのフォント</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>テーマ</translation>
    </message>
    <message>
        <source>This item has hand-authored values. Choose a preset to replace them with editable semantic controls.</source>
        <translation>この項目の値は手で書かれています。プリセットを選ぶと、編集しやすいコントロールに置き換わります。</translation>
    </message>
    <message>
        <source>Weight</source>
        <translation>太さ</translation>
    </message>
</context>
<context>
    <name>InspectorPanel</name>
    <message>
        <source>Inspector</source>
        <translation>インスペクター</translation>
    </message>
    <message>
        <source>Choose Motion…</source>
        <translation>モーションを選択…</translation>
    </message>
    <message>
        <source>Add Effect</source>
        <translation>エフェクトを追加</translation>
    </message>
    <message>
        <source>Find Beats</source>
        <translation>ビートを検出</translation>
    </message>
    <message>
        <source>Listens to the music, and sets the tempo and the first beat.</source>
        <translation>音楽を解析し、テンポと最初の拍を設定します。</translation>
    </message>
    <message>
        <source>Change %1</source>
        <translation>%1 を変更</translation>
    </message>
    <message>
        <source>Delete Keyframe</source>
        <translation>キーフレームを削除</translation>
    </message>
    <message>
        <source>Add Keyframe</source>
        <translation>キーフレームを追加</translation>
    </message>
</context>
<context>
    <name>JsonPanel</name>
    <message>
        <source>Apply</source>
        <translation>適用</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>破棄</translation>
    </message>
    <message>
        <source>Selection</source>
        <translation>選択範囲</translation>
    </message>
    <message>
        <source>Whole Document</source>
        <translation>文書全体</translation>
    </message>
    <message>
        <source>What is shown</source>
        <translation>表示する範囲</translation>
    </message>
    <message>
        <source>Document as JSON</source>
        <translation>JSON形式の文書</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>%1行目: %2</translation>
    </message>
    <message>
        <source>Edit JSON</source>
        <translation>JSONを編集</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Not a Tavix composition — open a .tavixcomp bundle.</source>
        <translation>Tavixの構成ではありません。.tavixcomp バンドルを開いてください。</translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation>プロジェクトを開く</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>名前を付けて保存</translation>
    </message>
    <message>
        <source>Set up Agents</source>
        <translation>エージェントの設定</translation>
    </message>
    <message>
        <source>Tavix %1</source>
        <translation>Tavix %1</translation>
    </message>
    <message>
        <source>Tavix is updated with the other packages of this machine, by its software manager.</source>
        <translation>Tavixは他のパッケージと共に、このマシンのソフトウェア管理で更新されます。</translation>
    </message>
    <message>
        <source>Turns a document into a finished product video.</source>
        <translation>文書を製品ビデオに仕上げます。</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>元に戻す: %1(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>やり直す(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>やり直す: %1(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>一時停止(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>再生(&amp;P)</translation>
    </message>
</context>
<context>
    <name>MenuBar</name>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Insert</source>
        <translation>挿入(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>再生(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>テーマ(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
</context>
<context>
    <name>MotionGallery</name>
    <message>
        <source>Search %1 motions</source>
        <translation>%1個のモーションを検索</translation>
    </message>
    <message>
        <source>Search motions</source>
        <translation>モーションを検索</translation>
    </message>
    <message>
        <source>Motions</source>
        <translation>モーション</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>置き換え</translation>
    </message>
    <message>
        <source>No motion is called that.</source>
        <translation>該当するモーションはありません。</translation>
    </message>
    <message>
        <source>A click gives the motion to the selected device.</source>
        <translation>クリックすると選択中のデバイスに適用されます。</translation>
    </message>
    <message>
        <source>Select a device to give it a motion.</source>
        <translation>モーションを適用するデバイスを選択してください。</translation>
    </message>
    <message>
        <source>“%1” takes the place of the device&apos;s own motion.</source>
        <translation>「%1」がデバイスの現在のモーションを置き換えます。</translation>
    </message>
    <message>
        <source>Motion “%1”</source>
        <translation>モーション「%1」</translation>
    </message>
    <message>
        <source>“%1” is applied.</source>
        <translation>「%1」を適用しました。</translation>
    </message>
</context>
<context>
    <name>NewProjectSheet</name>
    <message>
        <source>Create…</source>
        <translation>作成…</translation>
    </message>
    <message>
        <source>New from Template</source>
        <translation>テンプレートから新規</translation>
    </message>
    <message>
        <source>Templates</source>
        <translation>テンプレート</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>New Project</source>
        <translation>新規プロジェクト</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Changes to “%1” were not saved when Tavix ended at %2.</source>
        <translation>「%1」の変更は、Tavixが%2に終了した時点で保存されていませんでした。</translation>
    </message>
    <message>
        <source>Bring Them Back</source>
        <translation>復元</translation>
    </message>
    <message>
        <source>Give Them Up</source>
        <translation>破棄</translation>
    </message>
    <message>
        <source>Another program changed what you changed too: %1</source>
        <translation>他のプログラムも同じ箇所を変更しました: %1</translation>
    </message>
    <message>
        <source>Another program changed %1 values that you changed too, the first one: %2</source>
        <translation>他のプログラムも同じ値を%1件変更しました。最初の項目: %2</translation>
    </message>
    <message>
        <source>Keep Mine</source>
        <translation>自分の変更を残す</translation>
    </message>
    <message>
        <source>Take Theirs</source>
        <translation>相手の変更を採用</translation>
    </message>
    <message>
        <source>Changed by another program: %1.</source>
        <translation>他のプログラムによる変更: %1。</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>ShortcutSheet</name>
    <message>
        <source>Assign</source>
        <translation>割り当て</translation>
    </message>
    <message>
        <source>No Key</source>
        <translation>キーなし</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>リセット</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>キーボードショートカット</translation>
    </message>
    <message>
        <source>Search commands and keys</source>
        <translation>コマンドとキーを検索</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>コマンド</translation>
    </message>
    <message>
        <source>New key</source>
        <translation>新しいキー</translation>
    </message>
    <message>
        <source>Reset All</source>
        <translation>すべてリセット</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>%1 belongs to “%2”, which loses it.</source>
        <translation>%1 は「%2」から外れます。</translation>
    </message>
</context>
<context>
    <name>SidePanel</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>StageTool</name>
    <message>
        <source>%1 · %2 × %3</source>
        <translation>%1 · %2 × %3</translation>
    </message>
</context>
<context>
    <name>StageView</name>
    <message>
        <source>Stage</source>
        <translation>ステージ</translation>
    </message>
    <message>
        <source>%1 × %2 pixels at %3, %4</source>
        <translation>%1 × %2 ピクセル、位置 %3, %4</translation>
    </message>
</context>
<context>
    <name>TextInPlace</name>
    <message>
        <source>Text of the layer</source>
        <translation>レイヤーのテキスト</translation>
    </message>
</context>
<context>
    <name>Timeline</name>
    <message>
        <source>%1 of %2 seconds</source>
        <translation>%2秒のうち%1秒</translation>
    </message>
    <message>
        <source>%1 to %2 seconds</source>
        <translation>%1秒から%2秒</translation>
    </message>
    <message>
        <source>%1 to %2 seconds, %3 keyframes</source>
        <translation>%1秒から%2秒、キーフレーム%3個</translation>
    </message>
    <message>
        <source>%1 to %2 seconds, a transition of %3 seconds into the next</source>
        <translation>%1秒から%2秒、次へのトランジション%3秒</translation>
    </message>
    <message>
        <source>Keyframe of %1 at %2 seconds</source>
        <translation>%2秒の%1のキーフレーム</translation>
    </message>
    <message>
        <source>Playhead</source>
        <translation>再生ヘッド</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>シーン%1</translation>
    </message>
    <message>
        <source>Sound %1 at %2 seconds</source>
        <translation>%2秒のサウンド%1</translation>
    </message>
    <message>
        <source>Drop</source>
        <translation>ドロップ</translation>
    </message>
</context>
<context>
    <name>TimelineCanvas</name>
    <message>
        <source>Timeline</source>
        <translation>タイムライン</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>複製</translation>
    </message>
    <message>
        <source>Split Layer</source>
        <translation>レイヤーを分割</translation>
    </message>
    <message>
        <source>Select a layer, and choose what to animate in its menu.</source>
        <translation>レイヤーを選び、メニューからアニメーション対象を選択してください。</translation>
    </message>
    <message>
        <source>Nudge</source>
        <translation>微調整</translation>
    </message>
    <message>
        <source>Bring Forward</source>
        <translation>前面へ</translation>
    </message>
    <message>
        <source>Send Backward</source>
        <translation>背面へ</translation>
    </message>
    <message>
        <source>Trim Layer</source>
        <translation>レイヤーをトリム</translation>
    </message>
    <message>
        <source>Delete Keyframe</source>
        <translation>キーフレームを削除</translation>
    </message>
    <message>
        <source>Delete Layer</source>
        <translation>レイヤーを削除</translation>
    </message>
    <message>
        <source>Delete Scene</source>
        <translation>シーンを削除</translation>
    </message>
    <message>
        <source>Add Keyframe</source>
        <translation>キーフレームを追加</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message>
        <source>There are no layers on the clipboard.</source>
        <translation>クリップボードにレイヤーがありません。</translation>
    </message>
    <message>
        <source>Extend to Scene End</source>
        <translation>シーンの終わりまで延長</translation>
    </message>
    <message>
        <source>Animate</source>
        <translation>アニメーション</translation>
    </message>
    <message>
        <source>Animate %1</source>
        <translation>%1 をアニメーション</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Duplicate Scene</source>
        <translation>シーンを複製</translation>
    </message>
    <message>
        <source>Move Earlier</source>
        <translation>前へ移動</translation>
    </message>
    <message>
        <source>Move Later</source>
        <translation>後ろへ移動</translation>
    </message>
    <message>
        <source>Cut without Transition</source>
        <translation>トランジションなしでカット</translation>
    </message>
    <message>
        <source>Fade into the Next Scene</source>
        <translation>次のシーンへフェード</translation>
    </message>
    <message>
        <source>Change Ease</source>
        <translation>イージングを変更</translation>
    </message>
    <message>
        <source>Spring</source>
        <translation>スプリング</translation>
    </message>
    <message>
        <source>Edit Curve…</source>
        <translation>カーブを編集…</translation>
    </message>
</context>
<context>
    <name>TimelineGutter</name>
    <message>
        <source>Layers</source>
        <translation>レイヤー</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>サウンド</translation>
    </message>
    <message>
        <source>Go to the keyframe before</source>
        <translation>前のキーフレームへ</translation>
    </message>
    <message>
        <source>Set a keyframe at the playhead (K)</source>
        <translation>再生ヘッドにキーフレームを設定 (K)</translation>
    </message>
    <message>
        <source>Go to the next keyframe</source>
        <translation>次のキーフレームへ</translation>
    </message>
</context>
<context>
    <name>TimelinePanel</name>
    <message>
        <source>Snap</source>
        <translation>スナップ</translation>
    </message>
    <message>
        <source>Dragged things stick to the playhead, to ends and to beats. Hold Ctrl to drag freely.</source>
        <translation>ドラッグ時に再生ヘッド、端、拍に吸着します。Ctrlで解除。</translation>
    </message>
    <message>
        <source>Show more of the film (−)</source>
        <translation>広い範囲を表示 (−)</translation>
    </message>
    <message>
        <source>Show it larger (+)</source>
        <translation>拡大表示 (+)</translation>
    </message>
    <message>
        <source>Zoom of the timeline</source>
        <translation>タイムラインのズーム</translation>
    </message>
    <message>
        <source>Nothing selected</source>
        <translation>未選択</translation>
    </message>
</context>
<context>
    <name>UnsavedChanges</name>
    <message>
        <source>Do you want to save the changes you made to “%1”?</source>
        <translation>「%1」への変更を保存しますか？</translation>
    </message>
    <message>
        <source>Your changes will be lost if you don’t save them.</source>
        <translation>保存しないと変更は失われます。</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Don’t Save</source>
        <translation>保存しない</translation>
    </message>
</context>
<context>
    <name>WelcomeView</name>
    <message>
        <source>Version %1</source>
        <translation>バージョン %1</translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation>プロジェクトを開く</translation>
    </message>
    <message>
        <source>New from Template</source>
        <translation>テンプレートから新規</translation>
    </message>
    <message>
        <source>Set up agents</source>
        <translation>エージェントの設定</translation>
    </message>
    <message>
        <source>Browse every motion preset and video example</source>
        <translation>すべてのモーションプリセットと作例を見る</translation>
    </message>
    <message>
        <source>Recent Projects</source>
        <translation>最近使ったプロジェクト</translation>
    </message>
    <message>
        <source>No recent projects</source>
        <translation>最近のプロジェクトはありません</translation>
    </message>
</context>
<context>
    <name>WrittenPlace</name>
    <message>
        <source>The film</source>
        <translation>作品全体</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Edits compositions of product videos in a window.</source>
        <translation>製品ビデオの構成をウィンドウで編集します。</translation>
    </message>
    <message>
        <source>A .tavixcomp bundle to open.</source>
        <translation>開く .tavixcomp バンドル。</translation>
    </message>
</context>
</TS>
