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
        <source>Add &amp;Image…</source>
        <translation>画像を追加(&amp;I)…</translation>
    </message>
    <message>
        <source>Add &amp;Video…</source>
        <translation>ビデオを追加(&amp;V)…</translation>
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
    <message>
        <source>Cu&amp;t</source>
        <translation>切り取り(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>コピー(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>貼り付け(&amp;P)</translation>
    </message>
    <message>
        <source>Select &amp;All Layers</source>
        <translation>すべてのレイヤーを選択(&amp;A)</translation>
    </message>
    <message>
        <source>Find &amp;Beats</source>
        <translation>ビートを検出(&amp;B)</translation>
    </message>
    <message>
        <source>Add &amp;Music…</source>
        <translation>音楽を追加(&amp;M)…</translation>
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
    <message>
        <source>No command is called so.</source>
        <translation>その名前のコマンドはありません。</translation>
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
    <name>Document</name>
    <message>
        <source>Accent</source>
        <translation>アクセント</translation>
    </message>
    <message>
        <source>Alignment</source>
        <translation>配置</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>量</translation>
    </message>
    <message>
        <source>Amplitude</source>
        <translation>振幅</translation>
    </message>
    <message>
        <source>Animation</source>
        <translation>アニメーション</translation>
    </message>
    <message>
        <source>At</source>
        <translation>時刻</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>オーディオ</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>背景</translation>
    </message>
    <message>
        <source>Base padding</source>
        <translation>基本の余白</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>黒</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>ぼかし</translation>
    </message>
    <message>
        <source>Blur in</source>
        <translation>ぼけから現れる</translation>
    </message>
    <message>
        <source>Blur radius</source>
        <translation>ぼかしの半径</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>太字</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>明るさ</translation>
    </message>
    <message>
        <source>Camera distance</source>
        <translation>カメラの距離</translation>
    </message>
    <message>
        <source>Canvas</source>
        <translation>キャンバス</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>中央</translation>
    </message>
    <message>
        <source>Chance</source>
        <translation>乱数</translation>
    </message>
    <message>
        <source>Char cascade</source>
        <translation>文字の連なり</translation>
    </message>
    <message>
        <source>Chromatic aberration</source>
        <translation>色収差</translation>
    </message>
    <message>
        <source>Color controls</source>
        <translation>色の調整</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>色</translation>
    </message>
    <message>
        <source>Contain</source>
        <translation>全体を収める</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>コントラスト</translation>
    </message>
    <message>
        <source>Corner</source>
        <translation>角の位置</translation>
    </message>
    <message>
        <source>Corner radius</source>
        <translation>角丸の半径</translation>
    </message>
    <message>
        <source>Cosmic orange</source>
        <translation>コズミックオレンジ</translation>
    </message>
    <message>
        <source>Cover</source>
        <translation>枠を満たす</translation>
    </message>
    <message>
        <source>Cross zoom</source>
        <translation>クロスズーム</translation>
    </message>
    <message>
        <source>Crosswarp</source>
        <translation>クロスワープ</translation>
    </message>
    <message>
        <source>Cue</source>
        <translation>効果音</translation>
    </message>
    <message>
        <source>Curve</source>
        <translation>曲線</translation>
    </message>
    <message>
        <source>Damping</source>
        <translation>減衰</translation>
    </message>
    <message>
        <source>Deep blue</source>
        <translation>ディープブルー</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>奥行き</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>デバイス</translation>
    </message>
    <message>
        <source>Dreamy zoom</source>
        <translation>ドリーミーズーム</translation>
    </message>
    <message>
        <source>Drift</source>
        <translation>漂い</translation>
    </message>
    <message>
        <source>Drift period</source>
        <translation>漂いの周期</translation>
    </message>
    <message>
        <source>Duotone</source>
        <translation>ダブルトーン</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>長さ</translation>
    </message>
    <message>
        <source>Effects</source>
        <translation>エフェクト</translation>
    </message>
    <message>
        <source>Elegant</source>
        <translation>エレガント</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>楕円</translation>
    </message>
    <message>
        <source>Emphasis</source>
        <translation>強調</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>登場</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>退場</translation>
    </message>
    <message>
        <source>Fade</source>
        <translation>フェード</translation>
    </message>
    <message>
        <source>Fade in</source>
        <translation>フェードイン</translation>
    </message>
    <message>
        <source>Fade out</source>
        <translation>フェードアウト</translation>
    </message>
    <message>
        <source>Fade up</source>
        <translation>下からフェード</translation>
    </message>
    <message>
        <source>Field of view</source>
        <translation>画角</translation>
    </message>
    <message>
        <source>Fill</source>
        <translation>塗り</translation>
    </message>
    <message>
        <source>Finish</source>
        <translation>仕上げ</translation>
    </message>
    <message>
        <source>First beat</source>
        <translation>最初の拍</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>収め方</translation>
    </message>
    <message>
        <source>Flip</source>
        <translation>反転</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>フォント</translation>
    </message>
    <message>
        <source>Font weight</source>
        <translation>フォントの太さ</translation>
    </message>
    <message>
        <source>Frame</source>
        <translation>フレーム</translation>
    </message>
    <message>
        <source>Frame path</source>
        <translation>フレームのファイル</translation>
    </message>
    <message>
        <source>Frame rate</source>
        <translation>フレームレート</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>音量</translation>
    </message>
    <message>
        <source>Glacial</source>
        <translation>とても遅い</translation>
    </message>
    <message>
        <source>Glow</source>
        <translation>光彩</translation>
    </message>
    <message>
        <source>Heavy</source>
        <translation>極太</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高さ</translation>
    </message>
    <message>
        <source>High</source>
        <translation>高</translation>
    </message>
    <message>
        <source>Highlight</source>
        <translation>ハイライト</translation>
    </message>
    <message>
        <source>Highlight color</source>
        <translation>ハイライトの色</translation>
    </message>
    <message>
        <source>Hold last frame</source>
        <translation>最後のコマで止める</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>In space</source>
        <translation>空間内</translation>
    </message>
    <message>
        <source>Intensity</source>
        <translation>強さ</translation>
    </message>
    <message>
        <source>Karaoke fill</source>
        <translation>カラオケ塗り</translation>
    </message>
    <message>
        <source>Key light</source>
        <translation>主光源</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>Kinetic</source>
        <translation>動き</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>光</translation>
    </message>
    <message>
        <source>Light intensity</source>
        <translation>光の強さ</translation>
    </message>
    <message>
        <source>Line rise</source>
        <translation>行がせり上がる</translation>
    </message>
    <message>
        <source>Linear</source>
        <translation>一定</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>低</translation>
    </message>
    <message>
        <source>Max width</source>
        <translation>最大の幅</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>中</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>モデル</translation>
    </message>
    <message>
        <source>Motion blur</source>
        <translation>モーションブラー</translation>
    </message>
    <message>
        <source>Move X</source>
        <translation>X方向の移動</translation>
    </message>
    <message>
        <source>Move Y</source>
        <translation>Y方向の移動</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>音楽</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Noise</source>
        <translation>ノイズ</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>ずれ</translation>
    </message>
    <message>
        <source>On</source>
        <translation>オン</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>不透明度</translation>
    </message>
    <message>
        <source>Params</source>
        <translation>パラメータ</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>Pixelate</source>
        <translation>モザイク</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Placement</source>
        <translation>配置場所</translation>
    </message>
    <message>
        <source>Pose damping</source>
        <translation>姿勢の減衰</translation>
    </message>
    <message>
        <source>Pose response</source>
        <translation>姿勢の応答</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置座標</translation>
    </message>
    <message>
        <source>Punchy</source>
        <translation>力強い</translation>
    </message>
    <message>
        <source>Push</source>
        <translation>プッシュ</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>半径</translation>
    </message>
    <message>
        <source>Rect</source>
        <translation>矩形</translation>
    </message>
    <message>
        <source>Reel</source>
        <translation>リール</translation>
    </message>
    <message>
        <source>Regular</source>
        <translation>標準</translation>
    </message>
    <message>
        <source>Response</source>
        <translation>応答</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>右</translation>
    </message>
    <message>
        <source>Ripple</source>
        <translation>波紋</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>回転</translation>
    </message>
    <message>
        <source>Saturation</source>
        <translation>彩度</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>拡大率</translation>
    </message>
    <message>
        <source>Scale pop</source>
        <translation>ポップ</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>シーン</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>画面</translation>
    </message>
    <message>
        <source>Screen corner radius</source>
        <translation>画面の角丸</translation>
    </message>
    <message>
        <source>Seed</source>
        <translation>シード</translation>
    </message>
    <message>
        <source>Semibold</source>
        <translation>中太</translation>
    </message>
    <message>
        <source>Shadow</source>
        <translation>影</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>図形</translation>
    </message>
    <message>
        <source>Silver</source>
        <translation>シルバー</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大きさ</translation>
    </message>
    <message>
        <source>Slam</source>
        <translation>スラム</translation>
    </message>
    <message>
        <source>Slide down</source>
        <translation>下へスライド</translation>
    </message>
    <message>
        <source>Slide left</source>
        <translation>左へスライド</translation>
    </message>
    <message>
        <source>Slide right</source>
        <translation>右へスライド</translation>
    </message>
    <message>
        <source>Slide up</source>
        <translation>上へスライド</translation>
    </message>
    <message>
        <source>Smooth</source>
        <translation>なめらか</translation>
    </message>
    <message>
        <source>Snap</source>
        <translation>素早い</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>音</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>効果音</translation>
    </message>
    <message>
        <source>Source rect</source>
        <translation>切り出す範囲</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>速さ</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>開始</translation>
    </message>
    <message>
        <source>Start at</source>
        <translation>開始位置</translation>
    </message>
    <message>
        <source>Still</source>
        <translation>静止画</translation>
    </message>
    <message>
        <source>Style</source>
        <translation>スタイル</translation>
    </message>
    <message>
        <source>Tempo</source>
        <translation>テンポ</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>テキスト</translation>
    </message>
    <message>
        <source>Text color</source>
        <translation>文字の色</translation>
    </message>
    <message>
        <source>Tilt</source>
        <translation>傾き</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>時間</translation>
    </message>
    <message>
        <source>Tint</source>
        <translation>色味</translation>
    </message>
    <message>
        <source>Token</source>
        <translation>トークン</translation>
    </message>
    <message>
        <source>Tracking</source>
        <translation>字間</translation>
    </message>
    <message>
        <source>Tracking in</source>
        <translation>字間が縮まる</translation>
    </message>
    <message>
        <source>Transform</source>
        <translation>変形</translation>
    </message>
    <message>
        <source>Transition</source>
        <translation>トランジション</translation>
    </message>
    <message>
        <source>Trim end</source>
        <translation>末尾の切り詰め</translation>
    </message>
    <message>
        <source>Trim start</source>
        <translation>先頭の切り詰め</translation>
    </message>
    <message>
        <source>Turn</source>
        <translation>回転角</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>ビデオ</translation>
    </message>
    <message>
        <source>Vignette</source>
        <translation>周辺減光</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>幅</translation>
    </message>
    <message>
        <source>Wipe</source>
        <translation>ワイプ</translation>
    </message>
    <message>
        <source>Words</source>
        <translation>単語の選択</translation>
    </message>
    <message>
        <source>Word pop</source>
        <translation>単語のポップ</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>矩形</translation>
    </message>
    <message>
        <source>Rise Up</source>
        <translation>ライズアップ</translation>
    </message>
    <message>
        <source>Rise Soft</source>
        <translation>ソフトライズ</translation>
    </message>
    <message>
        <source>Rise Spin</source>
        <translation>ライズスピン</translation>
    </message>
    <message>
        <source>Rise Yaw</source>
        <translation>ライズヨー</translation>
    </message>
    <message>
        <source>Reveal Turn</source>
        <translation>リビールターン</translation>
    </message>
    <message>
        <source>Lay Rise</source>
        <translation>レイライズ</translation>
    </message>
    <message>
        <source>Lay Rise Spin</source>
        <translation>レイライズスピン</translation>
    </message>
    <message>
        <source>Corner Right Twirl</source>
        <translation>右コーナーツイール</translation>
    </message>
    <message>
        <source>Corner Left</source>
        <translation>左コーナー</translation>
    </message>
    <message>
        <source>Dolly In</source>
        <translation>ドリーイン</translation>
    </message>
    <message>
        <source>Drop Bounce</source>
        <translation>ドロップバウンス</translation>
    </message>
    <message>
        <source>Drop Heavy</source>
        <translation>ヘビードロップ</translation>
    </message>
    <message>
        <source>Slide Left</source>
        <translation>スライド左</translation>
    </message>
    <message>
        <source>Slide Right Lean</source>
        <translation>スライド右リーン</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>ズームイン</translation>
    </message>
    <message>
        <source>Zoom Overshoot</source>
        <translation>ズームオーバーシュート</translation>
    </message>
    <message>
        <source>Pop Elastic</source>
        <translation>エラスティックポップ</translation>
    </message>
    <message>
        <source>Jelly In</source>
        <translation>ジェリーイン</translation>
    </message>
    <message>
        <source>Fade Rise</source>
        <translation>フェードライズ</translation>
    </message>
    <message>
        <source>Blur In</source>
        <translation>ブラーイン</translation>
    </message>
    <message>
        <source>Materialize</source>
        <translation>マテリアライズ</translation>
    </message>
    <message>
        <source>Flip In X</source>
        <translation>フリップイン X</translation>
    </message>
    <message>
        <source>Flip In Y</source>
        <translation>フリップイン Y</translation>
    </message>
    <message>
        <source>Door In</source>
        <translation>ドアイン</translation>
    </message>
    <message>
        <source>Billboard Flip</source>
        <translation>ビルボードフリップ</translation>
    </message>
    <message>
        <source>Swing Drop</source>
        <translation>スイングドロップ</translation>
    </message>
    <message>
        <source>Pendulum In</source>
        <translation>ペンデュラムイン</translation>
    </message>
    <message>
        <source>Roll In</source>
        <translation>ロールイン</translation>
    </message>
    <message>
        <source>Cartwheel</source>
        <translation>側転</translation>
    </message>
    <message>
        <source>Kick Flip</source>
        <translation>キックフリップ</translation>
    </message>
    <message>
        <source>Helix Up</source>
        <translation>ヘリックスアップ</translation>
    </message>
    <message>
        <source>Spiral In</source>
        <translation>スパイラルイン</translation>
    </message>
    <message>
        <source>Float Drift</source>
        <translation>フロートドリフト</translation>
    </message>
    <message>
        <source>Slingshot</source>
        <translation>スリングショット</translation>
    </message>
    <message>
        <source>Elastic Side</source>
        <translation>エラスティックサイド</translation>
    </message>
    <message>
        <source>Rubber Entry</source>
        <translation>ラバーエントリー</translation>
    </message>
    <message>
        <source>Peek Enter</source>
        <translation>ピークイン</translation>
    </message>
    <message>
        <source>Tilt Land</source>
        <translation>チルトランド</translation>
    </message>
    <message>
        <source>Dive From Cam</source>
        <translation>カメラからダイブ</translation>
    </message>
    <message>
        <source>Skew Slide</source>
        <translation>スキュースライド</translation>
    </message>
    <message>
        <source>Stretch Drop</source>
        <translation>ストレッチドロップ</translation>
    </message>
    <message>
        <source>Shutter Steps</source>
        <translation>シャッターステップ</translation>
    </message>
    <message>
        <source>Typewriter Steps</source>
        <translation>タイプライターステップ</translation>
    </message>
    <message>
        <source>Gravity Three-Bounce</source>
        <translation>重力スリーバウンス</translation>
    </message>
    <message>
        <source>Glitch In</source>
        <translation>グリッチイン</translation>
    </message>
    <message>
        <source>Snap Pop</source>
        <translation>スナップポップ</translation>
    </message>
    <message>
        <source>Rise Facedown Flip</source>
        <translation>うつ伏せフリップライズ</translation>
    </message>
    <message>
        <source>Wave Ride</source>
        <translation>ウェーブライド</translation>
    </message>
    <message>
        <source>Moon Arc</source>
        <translation>ムーンアーク</translation>
    </message>
    <message>
        <source>Arc Over</source>
        <translation>アークオーバー</translation>
    </message>
    <message>
        <source>Orbit In</source>
        <translation>オービットイン</translation>
    </message>
    <message>
        <source>Tumble Diag</source>
        <translation>斜めタンブル</translation>
    </message>
    <message>
        <source>Seesaw Land</source>
        <translation>シーソーランド</translation>
    </message>
    <message>
        <source>Edge Balance</source>
        <translation>エッジバランス</translation>
    </message>
    <message>
        <source>Drop Roll Stand</source>
        <translation>ドロップロールスタンド</translation>
    </message>
    <message>
        <source>Sink Down</source>
        <translation>シンクダウン</translation>
    </message>
    <message>
        <source>Fall Back</source>
        <translation>フォールバック</translation>
    </message>
    <message>
        <source>Fly Up</source>
        <translation>フライアップ</translation>
    </message>
    <message>
        <source>Blast Off</source>
        <translation>ブラストオフ</translation>
    </message>
    <message>
        <source>Zoom Out Fade</source>
        <translation>ズームアウトフェード</translation>
    </message>
    <message>
        <source>Shrink Corner</source>
        <translation>コーナーへ縮小</translation>
    </message>
    <message>
        <source>Recede Away</source>
        <translation>後退</translation>
    </message>
    <message>
        <source>Spin Out</source>
        <translation>スピンアウト</translation>
    </message>
    <message>
        <source>Door Out</source>
        <translation>ドアアウト</translation>
    </message>
    <message>
        <source>Fold Away</source>
        <translation>フォールドアウト</translation>
    </message>
    <message>
        <source>Topple Off</source>
        <translation>転倒アウト</translation>
    </message>
    <message>
        <source>Slip Fall</source>
        <translation>スリップフォール</translation>
    </message>
    <message>
        <source>Whip Left</source>
        <translation>ホイップ左</translation>
    </message>
    <message>
        <source>Glitch Out</source>
        <translation>グリッチアウト</translation>
    </message>
    <message>
        <source>Deflate</source>
        <translation>デフレート</translation>
    </message>
    <message>
        <source>Park Left-To-Right</source>
        <translation>左から右へ移動</translation>
    </message>
    <message>
        <source>Park Face In</source>
        <translation>内向きパーク</translation>
    </message>
    <message>
        <source>Closeup Scan</source>
        <translation>クローズアップスキャン</translation>
    </message>
    <message>
        <source>Scan Up</source>
        <translation>スキャンアップ</translation>
    </message>
    <message>
        <source>Punch Top</source>
        <translation>上部パンチイン</translation>
    </message>
    <message>
        <source>Punch Bottom</source>
        <translation>下部パンチイン</translation>
    </message>
    <message>
        <source>Big Small Big</source>
        <translation>大・小・大</translation>
    </message>
    <message>
        <source>Flip Peek</source>
        <translation>フリップピーク</translation>
    </message>
    <message>
        <source>Lean Back Hold</source>
        <translation>リーンバックホールド</translation>
    </message>
    <message>
        <source>Tilt Showcase</source>
        <translation>チルトショーケース</translation>
    </message>
    <message>
        <source>Nod</source>
        <translation>うなずき</translation>
    </message>
    <message>
        <source>Push Swap</source>
        <translation>プッシュスワップ</translation>
    </message>
    <message>
        <source>Bounce Focus</source>
        <translation>バウンスフォーカス</translation>
    </message>
    <message>
        <source>Step Back Present</source>
        <translation>ステップバックプレゼント</translation>
    </message>
    <message>
        <source>Idle Drift</source>
        <translation>アイドルドリフト</translation>
    </message>
    <message>
        <source>Hover Float</source>
        <translation>ホバーフロート</translation>
    </message>
    <message>
        <source>Breathe Zoom</source>
        <translation>ブリーズズーム</translation>
    </message>
    <message>
        <source>Shake Attn</source>
        <translation>シェイク</translation>
    </message>
    <message>
        <source>Wobble Jelly</source>
        <translation>ジェリーウォブル</translation>
    </message>
    <message>
        <source>Pendulum Yaw</source>
        <translation>ペンデュラムヨー</translation>
    </message>
    <message>
        <source>Figure Eight</source>
        <translation>8 の字</translation>
    </message>
    <message>
        <source>Metronome</source>
        <translation>メトロノーム</translation>
    </message>
    <message>
        <source>Coin Spin Blur</source>
        <translation>コインスピンブラー</translation>
    </message>
    <message>
        <source>Pirouette</source>
        <translation>ピルエット</translation>
    </message>
    <message>
        <source>Gimbal Arc</source>
        <translation>ジンバルアーク</translation>
    </message>
    <message>
        <source>Barrel Roll</source>
        <translation>バレルロール</translation>
    </message>
    <message>
        <source>Snap Turns</source>
        <translation>スナップターン</translation>
    </message>
    <message>
        <source>Lighthouse</source>
        <translation>灯台</translation>
    </message>
    <message>
        <source>Matrix Lean</source>
        <translation>マトリックスリーン</translation>
    </message>
    <message>
        <source>Spotlight Lean</source>
        <translation>スポットライトリーン</translation>
    </message>
    <message>
        <source>Carousel Orbit</source>
        <translation>カルーセルオービット</translation>
    </message>
    <message>
        <source>Zoom Thru</source>
        <translation>ズームスルー</translation>
    </message>
    <message>
        <source>Depth Bob</source>
        <translation>デプスボブ</translation>
    </message>
    <message>
        <source>Slow Hero</source>
        <translation>スローヒーロー</translation>
    </message>
    <message>
        <source>Boomerang</source>
        <translation>ブーメラン</translation>
    </message>
    <message>
        <source>Beauty Turn</source>
        <translation>ビューティーターン</translation>
    </message>
    <message>
        <source>Whip Swap</source>
        <translation>ホイップスワップ</translation>
    </message>
    <message>
        <source>Portal Dive</source>
        <translation>ポータルダイブ</translation>
    </message>
    <message>
        <source>Macro Orbit</source>
        <translation>マクロオービット</translation>
    </message>
    <message>
        <source>Edge Reveal</source>
        <translation>エッジリビール</translation>
    </message>
    <message>
        <source>Rise Yaw 360 — No Blur</source>
        <translation>ライズヨー 360（ブラーなし）</translation>
    </message>
    <message>
        <source>Fan deck</source>
        <translation>ファンデッキ</translation>
    </message>
    <message>
        <source>UI burst</source>
        <translation>UI バースト</translation>
    </message>
    <message>
        <source>Orbit carousel</source>
        <translation>オービットカルーセル</translation>
    </message>
    <message>
        <source>Colorway domino</source>
        <translation>カラードミノ</translation>
    </message>
    <message>
        <source>Ecosystem handoff</source>
        <translation>デバイスハンドオフ</translation>
    </message>
    <message>
        <source>Infinite tunnel</source>
        <translation>無限トンネル</translation>
    </message>
    <message>
        <source>Screen cascade</source>
        <translation>スクリーンカスケード</translation>
    </message>
    <message>
        <source>Split focus</source>
        <translation>スプリットフォーカス</translation>
    </message>
    <message>
        <source>Depth wave</source>
        <translation>デプスウェーブ</translation>
    </message>
    <message>
        <source>Entrances</source>
        <translation>登場</translation>
    </message>
    <message>
        <source>Exits</source>
        <translation>退場</translation>
    </message>
    <message>
        <source>In-Scene Moves</source>
        <translation>シーン内の動き</translation>
    </message>
    <message>
        <source>Showcases</source>
        <translation>ショーケース</translation>
    </message>
    <message>
        <source>Tavix Originals</source>
        <translation>Tavix オリジナル</translation>
    </message>
    <message>
        <source>Formations</source>
        <translation>フォーメーション</translation>
    </message>
    <message>
        <source>Single Device</source>
        <translation>デバイス一台</translation>
    </message>
    <message>
        <source>Formation</source>
        <translation>フォーメーション</translation>
    </message>
</context>
<context>
    <name>DocumentHelp</name>
    <message>
        <source>0 is grey, 1 changes nothing.</source>
        <translation>0 は灰色、1 は変化なし。</translation>
    </message>
    <message>
        <source>A device of the catalog, as `tavix presets devices` lists them.</source>
        <translation>`tavix presets devices` が一覧するカタログのデバイス。</translation>
    </message>
    <message>
        <source>A key of the document&apos;s `fonts`, a font&apos;s name, a short name that `tavix presets fonts` lists, or a font file; the theme&apos;s when absent.</source>
        <translation>ドキュメントの `fonts` のキー、フォント名、`tavix presets fonts` の短い名前、またはフォントファイル。省略時はテーマのもの。</translation>
    </message>
    <message>
        <source>A name to speak of it.</source>
        <translation>呼び名。</translation>
    </message>
    <message>
        <source>A picture of the device with a hole for its screen.</source>
        <translation>画面の部分が抜けたデバイスの画像。</translation>
    </message>
    <message>
        <source>A shadow behind the letters.</source>
        <translation>文字の後ろの影。</translation>
    </message>
    <message>
        <source>A sound of the catalog, as `tavix presets sounds` lists them, or a sound file.</source>
        <translation>`tavix presets sounds` が一覧するカタログの音、または音声ファイル。</translation>
    </message>
    <message>
        <source>Added to every channel.</source>
        <translation>各チャンネルに加える値。</translation>
    </message>
    <message>
        <source>Chooses all that looks random.</source>
        <translation>ランダムに見えるものすべてを決める値。</translation>
    </message>
    <message>
        <source>Colour at the far end; the element&apos;s own when absent.</source>
        <translation>端での色。省略時は要素自身の色。</translation>
    </message>
    <message>
        <source>Colour of a marker behind the words.</source>
        <translation>単語の後ろのマーカーの色。</translation>
    </message>
    <message>
        <source>Colour of the body; named motions and formations leave it.</source>
        <translation>本体の色。名前付きのモーションや編隊では変わりません。</translation>
    </message>
    <message>
        <source>Colour of the letters.</source>
        <translation>文字の色。</translation>
    </message>
    <message>
        <source>Colour of the words.</source>
        <translation>単語の色。</translation>
    </message>
    <message>
        <source>Corner radius of the screen.</source>
        <translation>画面の角丸の半径。</translation>
    </message>
    <message>
        <source>Extra space between letters.</source>
        <translation>文字の間の余分な空き。</translation>
    </message>
    <message>
        <source>Frames per second: a number, or a fraction such as 30000/1001; 29.97 means that one.</source>
        <translation>1 秒あたりのコマ数。数、または 30000/1001 のような分数。29.97 はこれを意味します。</translation>
    </message>
    <message>
        <source>Free space between the canvas&apos;s edge and the device at scale 1. It makes the size of a device in space too.</source>
        <translation>拡大率 1 でのキャンバスの端とデバイスの間の余白。空間内のデバイスの大きさもこれで決まります。</translation>
    </message>
    <message>
        <source>From where the key light shines: x below 0 is from above, y above 0 from the left; z is not used.</source>
        <translation>主光源の方向。x が 0 未満なら上から、y が 0 より大きければ左から。z は使いません。</translation>
    </message>
    <message>
        <source>Height of the frames; even, for films.</source>
        <translation>コマの高さ。映像では偶数。</translation>
    </message>
    <message>
        <source>How bright the glow is.</source>
        <translation>光彩の明るさ。</translation>
    </message>
    <message>
        <source>How dark it is.</source>
        <translation>暗さ。</translation>
    </message>
    <message>
        <source>How dark the edge gets; 1 is black in the corners at a radius of 1.</source>
        <translation>縁の暗さ。1 は半径 1 のとき四隅が黒。</translation>
    </message>
    <message>
        <source>How far a dreamyZoom turns.</source>
        <translation>ドリーミーズームの回転の量。</translation>
    </message>
    <message>
        <source>How far a ripple throws, in pixels of a picture of 1080 lines.</source>
        <translation>波紋の振れ幅。1080 ラインの画像でのピクセル数。</translation>
    </message>
    <message>
        <source>How far a ripple&apos;s wave runs in the whole transition, in radians.</source>
        <translation>トランジション全体で波が進む量(ラジアン)。</translation>
    </message>
    <message>
        <source>How far a zoom goes.</source>
        <translation>ズームの量。</translation>
    </message>
    <message>
        <source>How far it goes: 0 not at all, 1 wholly.</source>
        <translation>効き具合。0 はなし、1 は完全。</translation>
    </message>
    <message>
        <source>How far it sways about its rest from side to side; half as far up and down.</source>
        <translation>静止位置からの左右の揺れ幅。上下はその半分。</translation>
    </message>
    <message>
        <source>How far red goes to one side and blue to the other.</source>
        <translation>赤と青がそれぞれ反対側にずれる量。</translation>
    </message>
    <message>
        <source>How far the camera stands, in lengths of space. It changes the perspective and not the size.</source>
        <translation>カメラまでの距離(空間の長さ)。大きさではなく遠近感が変わります。</translation>
    </message>
    <message>
        <source>How heavy the letters are.</source>
        <translation>文字の太さ。</translation>
    </message>
    <message>
        <source>How it gives way to the next scene.</source>
        <translation>次のシーンへの移り方。</translation>
    </message>
    <message>
        <source>How its progress runs.</source>
        <translation>進み方。</translation>
    </message>
    <message>
        <source>How large the device is at the playhead.</source>
        <translation>再生ヘッドでのデバイスの大きさ。</translation>
    </message>
    <message>
        <source>How long a pose takes to arrive.</source>
        <translation>姿勢に達するまでの時間。</translation>
    </message>
    <message>
        <source>How long it is, its transition to the next scene included.</source>
        <translation>次のシーンへのトランジションを含む長さ。</translation>
    </message>
    <message>
        <source>How long it stays; to the end of its scene when absent.</source>
        <translation>表示される長さ。省略時はシーンの終わりまで。</translation>
    </message>
    <message>
        <source>How long it takes to come in.</source>
        <translation>始まりのフェードの長さ。</translation>
    </message>
    <message>
        <source>How long it takes to go, at the end of the film.</source>
        <translation>映像の終わりでのフェードの長さ。</translation>
    </message>
    <message>
        <source>How long one piece takes.</source>
        <translation>1 つの要素にかかる時間。</translation>
    </message>
    <message>
        <source>How long one sway takes.</source>
        <translation>1 回の揺れにかかる時間。</translation>
    </message>
    <message>
        <source>How long the device takes to follow.</source>
        <translation>デバイスが追いつくまでの時間。</translation>
    </message>
    <message>
        <source>How long the two scenes overlap; the film is shorter by that.</source>
        <translation>2 つのシーンが重なる長さ。そのぶん映像は短くなります。</translation>
    </message>
    <message>
        <source>How near the device is at the playhead; 0.5 is usual.</source>
        <translation>再生ヘッドでのデバイスの近さ。通常は 0.5。</translation>
    </message>
    <message>
        <source>How progress runs over the phase.</source>
        <translation>この間の進み方。</translation>
    </message>
    <message>
        <source>How round its corners are; 0.5 is a half circle.</source>
        <translation>角の丸さ。0.5 は半円。</translation>
    </message>
    <message>
        <source>How round the corners of a rect are; 0.5 is a half circle.</source>
        <translation>矩形の角の丸さ。0.5 は半円。</translation>
    </message>
    <message>
        <source>How soft it is: the standard deviation of a blur.</source>
        <translation>柔らかさ。ぼかしの標準偏差。</translation>
    </message>
    <message>
        <source>How soft its edge is: the standard deviation of a blur.</source>
        <translation>縁の柔らかさ。ぼかしの標準偏差。</translation>
    </message>
    <message>
        <source>How solid it is at the far end.</source>
        <translation>端での不透明度。</translation>
    </message>
    <message>
        <source>How solid it is.</source>
        <translation>不透明度。</translation>
    </message>
    <message>
        <source>How springy: from 0.2, which swings long, to 1, which does not swing.</source>
        <translation>弾み具合。0.2 は長く揺れ、1 は揺れません。</translation>
    </message>
    <message>
        <source>How strong the grain is.</source>
        <translation>粒子の強さ。</translation>
    </message>
    <message>
        <source>How the device is turned at the playhead, in degrees.</source>
        <translation>再生ヘッドでのデバイスの向き(度)。</translation>
    </message>
    <message>
        <source>How the next scene takes over.</source>
        <translation>次のシーンへの切り替わり方。</translation>
    </message>
    <message>
        <source>How the text comes, stays and goes.</source>
        <translation>テキストの現れ方、留まり方、消え方。</translation>
    </message>
    <message>
        <source>How wide the glow is: its standard deviation.</source>
        <translation>光彩の広さ(標準偏差)。</translation>
    </message>
    <message>
        <source>Its colour.</source>
        <translation>色。</translation>
    </message>
    <message>
        <source>Its height.</source>
        <translation>高さ。</translation>
    </message>
    <message>
        <source>Its height; that of the picture in pixels when absent. The width follows.</source>
        <translation>高さ。省略時は画像のピクセル数。幅はこれに従います。</translation>
    </message>
    <message>
        <source>Its image effects, applied in order before it is moved. At most 32, and at most 4 chromaticAberration.</source>
        <translation>動かす前に順に適用される画像エフェクト。最大 32 個、うち色収差は最大 4 個。</translation>
    </message>
    <message>
        <source>Its outline. An ellipse is a rect whose corners are as round as they can be: a circle where it is as wide as high.</source>
        <translation>輪郭。楕円は角を最大限に丸めた矩形で、幅と高さが同じなら円になります。</translation>
    </message>
    <message>
        <source>Its paint. A gradient spans the whole canvas, not the shape: the shape is a window on it.</source>
        <translation>塗り。グラデーションは図形ではなくキャンバス全体に広がり、図形はその窓になります。</translation>
    </message>
    <message>
        <source>Its place, in shares of the canvas from the top left; the whole canvas when absent.</source>
        <translation>左上からのキャンバスの割合での位置。省略時はキャンバス全体。</translation>
    </message>
    <message>
        <source>Its tempo; needed for times in beats. `tavix beats` finds it.</source>
        <translation>テンポ。拍での時刻指定に必要です。`tavix beats` で求められます。</translation>
    </message>
    <message>
        <source>Its width.</source>
        <translation>幅。</translation>
    </message>
    <message>
        <source>Loudness; 1 is as recorded.</source>
        <translation>音量。1 は録音のまま。</translation>
    </message>
    <message>
        <source>Makes the device a model in space. It then stands where `placement` says: the layer&apos;s `position` does not move it.</source>
        <translation>デバイスを空間内のモデルにします。位置は `placement` に従い、レイヤーの位置座標では動きません。</translation>
    </message>
    <message>
        <source>Size at the far end; 1 is its own.</source>
        <translation>端での大きさ。1 は元の大きさ。</translation>
    </message>
    <message>
        <source>Size of the text.</source>
        <translation>テキストの大きさ。</translation>
    </message>
    <message>
        <source>Size of the words; 1 is that of the text.</source>
        <translation>単語の大きさ。1 はテキストと同じ。</translation>
    </message>
    <message>
        <source>Smear of quick motion: this share of its way in a frame, at most 32 pixels. 0 is sharp.</source>
        <translation>速い動きのぶれ。1 コマで進む距離に対する割合で、最大 32 ピクセル。0 はぶれなし。</translation>
    </message>
    <message>
        <source>Sounds at single moments.</source>
        <translation>個々の時刻に鳴る音。</translation>
    </message>
    <message>
        <source>Spread about the middle grey; 1 changes nothing.</source>
        <translation>中間の灰色からの広がり。1 は変化なし。</translation>
    </message>
    <message>
        <source>Standard deviation of the blur at the far end.</source>
        <translation>端でのぼかしの標準偏差。</translation>
    </message>
    <message>
        <source>Standard deviation of the blur.</source>
        <translation>ぼかしの標準偏差。</translation>
    </message>
    <message>
        <source>Strength of the light; 1 is usual.</source>
        <translation>光の強さ。通常は 1。</translation>
    </message>
    <message>
        <source>Strengths of the warping styles.</source>
        <translation>歪ませるスタイルの強さ。</translation>
    </message>
    <message>
        <source>The camera&apos;s angle of view, from top to bottom.</source>
        <translation>カメラの縦の画角。</translation>
    </message>
    <message>
        <source>The colour it is drawn towards.</source>
        <translation>近づける色。</translation>
    </message>
    <message>
        <source>The colour of the dark parts.</source>
        <translation>暗い部分の色。</translation>
    </message>
    <message>
        <source>The colour of the light parts.</source>
        <translation>明るい部分の色。</translation>
    </message>
    <message>
        <source>The left upper corner of the layer, in pixels of the canvas.</source>
        <translation>レイヤーの左上の角(キャンバスのピクセル)。</translation>
    </message>
    <message>
        <source>The look, from the theme.</source>
        <translation>テーマから選ぶ外観。</translation>
    </message>
    <message>
        <source>The movie file, relative to the asset root.</source>
        <translation>プロジェクトのフォルダから見た動画ファイル。</translation>
    </message>
    <message>
        <source>The music under everything.</source>
        <translation>全体に流れる音楽。</translation>
    </message>
    <message>
        <source>The part of the clip that is shown, in shares of it from its top left.</source>
        <translation>表示するクリップの部分。左上からの割合。</translation>
    </message>
    <message>
        <source>The part of the picture that is shown, in shares of it from its top left.</source>
        <translation>表示する画像の部分。左上からの割合。</translation>
    </message>
    <message>
        <source>The picture file, relative to the asset root.</source>
        <translation>プロジェクトのフォルダから見た画像ファイル。</translation>
    </message>
    <message>
        <source>The pose at rest: x tips the top away, y turns the screen to the right, z turns clockwise.</source>
        <translation>静止時の姿勢。x は上端を奥へ、y は画面を右へ、z は時計回りに回します。</translation>
    </message>
    <message>
        <source>The screen&apos;s place, in shares of the frame picture.</source>
        <translation>フレーム画像に対する割合での画面の位置。</translation>
    </message>
    <message>
        <source>The side of a square.</source>
        <translation>正方形の一辺。</translation>
    </message>
    <message>
        <source>The sound file, relative to the asset root.</source>
        <translation>プロジェクトのフォルダから見た音声ファイル。</translation>
    </message>
    <message>
        <source>The video file.</source>
        <translation>動画ファイル。</translation>
    </message>
    <message>
        <source>Turn at the far end: x brings the top forward, y turns it to the right, z turns text counterclockwise and a whole layer clockwise.</source>
        <translation>端での回転。x は上端を手前へ、y は右へ、z はテキストを反時計回りに、レイヤー全体を時計回りに回します。</translation>
    </message>
    <message>
        <source>Weight of the words.</source>
        <translation>単語の太さ。</translation>
    </message>
    <message>
        <source>What holds at the playhead; a change sets a keyframe there.</source>
        <translation>再生ヘッドでの値。変更するとそこにキーフレームが置かれます。</translation>
    </message>
    <message>
        <source>What is behind everything.</source>
        <translation>すべての後ろにあるもの。</translation>
    </message>
    <message>
        <source>What is behind its layers.</source>
        <translation>レイヤーの後ろにあるもの。</translation>
    </message>
    <message>
        <source>What is heard.</source>
        <translation>聞こえるもの。</translation>
    </message>
    <message>
        <source>What is written; a line break starts a new line. At most 20,000 characters.</source>
        <translation>書かれる内容。改行で新しい行になります。最大 20,000 文字。</translation>
    </message>
    <message>
        <source>What it shows.</source>
        <translation>表示するもの。</translation>
    </message>
    <message>
        <source>What it was called.</source>
        <translation>元の名前。</translation>
    </message>
    <message>
        <source>What the devices of a formation show, one after another and over again; without it all show `screen`.</source>
        <translation>編隊のデバイスが順に繰り返し表示するもの。なければすべて `screen` を表示します。</translation>
    </message>
    <message>
        <source>What the screen shows.</source>
        <translation>画面に表示するもの。</translation>
    </message>
    <message>
        <source>When it appears, from the start of its scene.</source>
        <translation>シーンの始まりから見た表示の開始時刻。</translation>
    </message>
    <message>
        <source>When its first beat falls, in seconds of the file.</source>
        <translation>最初の拍の時刻(ファイルの秒)。</translation>
    </message>
    <message>
        <source>When, from the start of the film.</source>
        <translation>映像の始まりからの時刻。</translation>
    </message>
    <message>
        <source>Where in the file it begins.</source>
        <translation>ファイル内の開始位置。</translation>
    </message>
    <message>
        <source>Where in the file it ends.</source>
        <translation>ファイル内の終了位置。</translation>
    </message>
    <message>
        <source>Where in the file it starts.</source>
        <translation>ファイル内の始まり。</translation>
    </message>
    <message>
        <source>Where it comes from as it appears. Of a phase around a whole layer, offset, scale, rotationDeg.z (clockwise), opacity and blur count.</source>
        <translation>現れるときの出発点。レイヤー全体の場合、ずれ、拡大率、z の回転(時計回り)、不透明度、ぼかしが効きます。</translation>
    </message>
    <message>
        <source>Where it falls: x to the right, y downwards, both in shares of the canvas height.</source>
        <translation>影の落ちる位置。x は右、y は下、いずれもキャンバスの高さに対する割合。</translation>
    </message>
    <message>
        <source>Where it goes as it disappears.</source>
        <translation>消えるときの行き先。</translation>
    </message>
    <message>
        <source>Where it is at the far end: x to the right, y downwards, both in shares of the canvas height.</source>
        <translation>端での位置。x は右、y は下、いずれもキャンバスの高さに対する割合。</translation>
    </message>
    <message>
        <source>Where its middle stands, in output pixels from the top left. Clips with a `rect`, fills and devices do not heed it; scale, turn and skew go about it.</source>
        <translation>左上からの出力ピクセルでの中心の位置。`rect` のあるクリップ、塗り、デバイスには効きません。拡大、回転、傾斜はここを中心に行われます。</translation>
    </message>
    <message>
        <source>Where lines start: left, center or right.</source>
        <translation>行の揃え方。左、中央、右。</translation>
    </message>
    <message>
        <source>Where the device stands at the playhead, from the middle, in canvas heights.</source>
        <translation>再生ヘッドでのデバイスの位置。中央からのキャンバスの高さ単位。</translation>
    </message>
    <message>
        <source>Where the device stands, over time, about the middle of the canvas.</source>
        <translation>時間に沿ったデバイスの位置。キャンバスの中央が基準。</translation>
    </message>
    <message>
        <source>Where the full darkness lies, in half diagonals from the middle.</source>
        <translation>最も暗くなる位置。中央からの対角線の半分を単位とします。</translation>
    </message>
    <message>
        <source>Whether it fills its place or fits into it.</source>
        <translation>枠を満たすか、枠に収めるか。</translation>
    </message>
    <message>
        <source>Whether the last frame stays when the clip is over; it goes otherwise.</source>
        <translation>クリップが終わったあと最後のコマを残すかどうか。残さなければ消えます。</translation>
    </message>
    <message>
        <source>Which grain; the same seed gives the same.</source>
        <translation>粒子の種類。同じシードなら同じになります。</translation>
    </message>
    <message>
        <source>Which words of the text, counted from 0.</source>
        <translation>テキストのどの単語か(0 から数えます)。</translation>
    </message>
    <message>
        <source>Widest block, of the canvas width. Beside it a margin of half of (1 - maxWidthFraction) of the canvas *height* stays free on either side, and lines keep 0.6 of the text&apos;s size from the block&apos;s edges.</source>
        <translation>キャンバスの幅に対するブロックの最大幅。両側にはキャンバスの*高さ*の (1 - maxWidthFraction) の半分が空き、行はブロックの端から文字の大きさの 0.6 だけ離れます。</translation>
    </message>
    <message>
        <source>Width of the frames; even, for films.</source>
        <translation>コマの幅。映像では偶数。</translation>
    </message>
    <message>
        <source>Words with a look of their own.</source>
        <translation>独自の外観を持つ単語。</translation>
    </message>
    <message>
        <source>The folder of the reel, whose name ends in .tavixproj.</source>
        <translation>名前が .tavixproj で終わるリールのフォルダ。</translation>
    </message>
    <message>
        <source>The picture file.</source>
        <translation>画像ファイル。</translation>
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
    <message>
        <source>Animated WebP</source>
        <translation>アニメーション WebP</translation>
    </message>
    <message>
        <source>Pictures, one for each frame</source>
        <translation>画像(1 コマに 1 枚)</translation>
    </message>
    <message>
        <source> MB</source>
        <translation> MB</translation>
    </message>
    <message>
        <source>At Most</source>
        <translation>上限</translation>
    </message>
    <message>
        <source>The usual</source>
        <translation>通常</translation>
    </message>
    <message>
        <source>At most %1, with %2 Mbit/s for the pictures, in about %3 on this machine</source>
        <translation>最大 %1、映像は %2 Mbit/s、このマシンで約 %3</translation>
    </message>
    <message>
        <source>About %1 at %2 × %3 pixels and %4 frames a second, in about %5 on this machine</source>
        <translation>約 %1、%2 × %3 ピクセル、毎秒 %4 コマ、このマシンで約 %5</translation>
    </message>
    <message>
        <source>Export to a Folder</source>
        <translation>フォルダに書き出し</translation>
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
    <name>FrameCopy</name>
    <message>
        <source>Copied the frame.</source>
        <translation>フレームをコピーしました。</translation>
    </message>
    <message>
        <source>The frame could not be copied: %1</source>
        <translation>フレームをコピーできませんでした: %1</translation>
    </message>
</context>
<context>
    <name>GalleryPlayer</name>
    <message>
        <source>The motion as it plays</source>
        <translation>再生中のモーション</translation>
    </message>
    <message>
        <source>From the start</source>
        <translation>最初から</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>再生</translation>
    </message>
    <message>
        <source>No motion is chosen</source>
        <translation>モーションが選ばれていません</translation>
    </message>
    <message>
        <source>Choose one to see it here.</source>
        <translation>選ぶとここに表示されます。</translation>
    </message>
    <message>
        <source>%1 · %2 · %3 s</source>
        <comment>a collection, 2D or 3D, the seconds that it takes</comment>
        <translation>%1 · %2 · %3 秒</translation>
    </message>
    <message>
        <source>In documents: %1</source>
        <translation>ドキュメント内: %1</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>It is being drawn…</source>
        <translation>描画中…</translation>
    </message>
</context>
<context>
    <name>GalleryWindow</name>
    <message>
        <source>Motion Presets</source>
        <translation>モーションプリセット</translation>
    </message>
    <message>
        <source>Give to the Selected Device</source>
        <translation>選択したデバイスに適用</translation>
    </message>
    <message>
        <source>Motion “%1”</source>
        <translation>モーション「%1」</translation>
    </message>
    <message>
        <source>Select a device in a project to give it a motion.</source>
        <translation>プロジェクトでデバイスを選ぶとモーションを適用できます。</translation>
    </message>
    <message>
        <source>It takes the place of the device&apos;s own motion; undo brings that back.</source>
        <translation>デバイス固有の動きと置き換わります。取り消しで元に戻せます。</translation>
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
        <source>Choose a color, here or anywhere on the screen</source>
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
        <source>Color</source>
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
    <message>
        <source>Play the sound</source>
        <translation>音を再生</translation>
    </message>
    <message>
        <source>Saturation and brightness</source>
        <translation>彩度と明度</translation>
    </message>
    <message>
        <source>Saturation %1 %, brightness %2 %</source>
        <translation>彩度 %1 %、明度 %2 %</translation>
    </message>
    <message>
        <source>In the film</source>
        <translation>映像内の色</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>最近使った色</translation>
    </message>
    <message>
        <source>Hue</source>
        <translation>色相</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>不透明度</translation>
    </message>
    <message>
        <source>Hexadecimal digits</source>
        <translation>16進数</translation>
    </message>
    <message>
        <source>Pick from the Screen</source>
        <translation>画面から色を取得</translation>
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
    <message>
        <source>Composition</source>
        <translation>コンポジション</translation>
    </message>
    <message>
        <source>%1 layers</source>
        <translation>%1 個のレイヤー</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>シーン %1</translation>
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
        <source>%1 is open in another window. Close it there, or choose another name.</source>
        <translation>%1 は別のウインドウで開いています。そちらで閉じるか、別の名前を選んでください。</translation>
    </message>
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
    <message>
        <source>Images</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>動画</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>音楽</translation>
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
    <name>MusicStrip</name>
    <message>
        <source>Waveform of the music</source>
        <translation>音楽の波形</translation>
    </message>
    <message>
        <source>Listening…</source>
        <translation>解析中…</translation>
    </message>
    <message>
        <source>Not listened to yet: Find Beats tells its tempo and its sections.</source>
        <translation>未解析です。拍を検出するとテンポと区間が分かります。</translation>
    </message>
    <message>
        <source>%1 beats a minute</source>
        <translation>毎分 %1 拍</translation>
    </message>
    <message>
        <source>first beat at %1 s</source>
        <translation>最初の拍 %1 秒</translation>
    </message>
    <message>
        <source>%1 % sure</source>
        <translation>確度 %1 %</translation>
    </message>
    <message>
        <source>or %1</source>
        <translation>または %1</translation>
    </message>
    <message>
        <source>no beat</source>
        <translation>拍なし</translation>
    </message>
    <message>
        <source>drop at %1 s</source>
        <translation>ドロップ %1 秒</translation>
    </message>
    <message>
        <source>%1 sections</source>
        <translation>%1 区間</translation>
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
    <name>Reveal</name>
    <message>
        <source>No file manager answers. The file is “%1”.</source>
        <translation>ファイルマネージャーが応答しません。ファイルは「%1」です。</translation>
    </message>
</context>
<context>
    <name>Selection</name>
    <message>
        <source>%1 layer %2</source>
        <comment>a kind, as text or device, and the number of the layer</comment>
        <translation>%1レイヤー %2</translation>
    </message>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1 ほか %2</translation>
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
    <name>Step</name>
    <message>
        <source>Find the beat</source>
        <translation>拍の検出</translation>
    </message>
    <message>
        <source>Add keyframe</source>
        <translation>キーフレームの追加</translation>
    </message>
    <message>
        <source>Move device</source>
        <translation>デバイスの移動</translation>
    </message>
    <message>
        <source>Nudge device</source>
        <translation>デバイスの微移動</translation>
    </message>
    <message>
        <source>Move layer</source>
        <translation>レイヤーの移動</translation>
    </message>
    <message>
        <source>Nudge layer</source>
        <translation>レイヤーの微移動</translation>
    </message>
    <message>
        <source>Edit text</source>
        <translation>テキストの編集</translation>
    </message>
    <message>
        <source>Duplicate layer</source>
        <translation>レイヤーの複製</translation>
    </message>
    <message>
        <source>Duplicate scene</source>
        <translation>シーンの複製</translation>
    </message>
    <message>
        <source>Remove layer</source>
        <translation>レイヤーの削除</translation>
    </message>
    <message>
        <source>Remove scene</source>
        <translation>シーンの削除</translation>
    </message>
    <message>
        <source>Add scene</source>
        <translation>シーンの追加</translation>
    </message>
    <message>
        <source>Add layer</source>
        <translation>レイヤーの追加</translation>
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
    <message>
        <source>Cut</source>
        <translation>切り取り</translation>
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
    <message>
        <source>Update Engine</source>
        <translation>エンジンを更新</translation>
    </message>
    <message>
        <source>Install Globally</source>
        <translation>全体にインストール</translation>
    </message>
    <message>
        <source>Puts the command tavix on this machine, for the agents that it has.</source>
        <translation>コマンド tavix をこのマシンに入れ、エージェントから使えるようにします。</translation>
    </message>
    <message>
        <source>Install for a Project</source>
        <translation>プロジェクトにインストール</translation>
    </message>
    <message>
        <source>Puts the command tavix into one folder, for the agents that work there.</source>
        <translation>コマンド tavix を 1 つのフォルダに入れ、そこで働くエージェントから使えるようにします。</translation>
    </message>
    <message>
        <source>The command on this machine is of another version than this application.</source>
        <translation>このマシンのコマンドはこのアプリケーションと版が異なります。</translation>
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
<context>
    <name>Finding</name>
    <message>
        <source>%1 needs a beat grid — the composition declares no audio.music.bpm.</source>
        <translation>%1 にはビートグリッドが必要ですが、audio.music.bpm がありません。</translation>
    </message>
    <message>
        <source>Set audio.music.bpm (+ firstBeatSec) — run `tavix beats &lt;audio&gt;` to measure them.</source>
        <translation>audio.music.bpm（と firstBeatSec）を指定してください。`tavix beats &lt;audio&gt;` で測れます。</translation>
    </message>
    <message>
        <source>%1 and %2 both set — pick one duration authority.</source>
        <translation>%1 と %2 の両方が指定されています。長さを決めるのはどちらか一つにしてください。</translation>
    </message>
    <message>
        <source>%1 and %2 on the same %3 — pick one clock%4.</source>
        <translation>同じ%3に %1 と %2 があります。時計を一つにしてください%4。</translation>
    </message>
    <message>
        <source>bpm %1 out of range (40…220).</source>
        <translation>bpm %1 は範囲外です（40…220）。</translation>
    </message>
    <message>
        <source>A composition needs at least one scene.</source>
        <translation>コンポジションにはシーンが一つ以上必要です。</translation>
    </message>
    <message>
        <source>Cue at %1s is past the composition end (%2s).</source>
        <translation>%1 秒の効果音は終わり（%2 秒）より後です。</translation>
    </message>
    <message>
        <source>Sound &quot;%1&quot; is neither a catalog name (%2) nor an audio-file path — it will be skipped.</source>
        <translation>音「%1」はカタログの名前（%2）でも音声ファイルのパスでもないため、再生されません。</translation>
    </message>
    <message>
        <source>%1 %2 out of range (%3…%4).</source>
        <translation>%1 の %2 は範囲外です（%3…%4）。</translation>
    </message>
    <message>
        <source>%1 accent transitions (dreamyZoom/crosswarp/ripple) — one accent per composition.</source>
        <translation>目立つトランジション（dreamyZoom/crosswarp/ripple）が %1 個あります。一つに絞ってください。</translation>
    </message>
    <message>
        <source>Total runs %1s — teasers read best under 60–90s.</source>
        <translation>全体で %1 秒あります。ティーザーは 60〜90 秒以内が適切です。</translation>
    </message>
    <message>
        <source>%1 starts at %2s — %3s off the beat grid (nearest beat %4s at %5 BPM).</source>
        <translation>%1 は %2 秒に始まり、ビートから %3 秒ずれています（最も近いビートは %4 秒、%5 BPM）。</translation>
    </message>
    <message>
        <source>Set scenes[%1].durationSec to %2 (or use durationBeats) to land the cut on the beat.</source>
        <translation>カットをビートに合わせるには scenes[%1].durationSec を %2 にするか、durationBeats を使ってください。</translation>
    </message>
    <message>
        <source>Music bed has an empty path.</source>
        <translation>音楽のパスが空です。</translation>
    </message>
    <message>
        <source>Device screen needs a still or video path.</source>
        <translation>デバイスの画面には静止画か動画のパスが必要です。</translation>
    </message>
    <message>
        <source>screens are for the devices of a formation, one each; without a choreographyPreset only screen is shown.</source>
        <translation>screens はフォーメーションの各デバイス用です。choreographyPreset がなければ screen だけが表示されます。</translation>
    </message>
    <message>
        <source>Device has both a placement track and x/y/scale keyframes — pick one motion system (placement = baked springs, tracks = generic keyframes).</source>
        <translation>デバイスに placement トラックと x/y/scale のキーフレームの両方があります。動きの方式を一つにしてください（placement = 固定ばね、tracks = 汎用キーフレーム）。</translation>
    </message>
    <message>
        <source>Placement times must be strictly ascending.</source>
        <translation>placement の時刻は昇順でなければなりません。</translation>
    </message>
    <message>
        <source>screenOpacity %1 is outside 0…1 — clamped at render.</source>
        <translation>screenOpacity %1 は 0…1 の範囲外なので、制限されます。</translation>
    </message>
    <message>
        <source>screenOpacity times must be strictly ascending.</source>
        <translation>screenOpacity の時刻は昇順でなければなりません。</translation>
    </message>
    <message>
        <source>Last pose keyframe at %1s is past the layer&apos;s %2s window — scene3D pose times are LAYER-LOCAL (0 = the layer&apos;s start), not the reel clock.</source>
        <translation>最後のポーズのキーフレーム（%1 秒）がレイヤーの長さ %2 秒を超えています。scene3D の時刻はレイヤーの先頭から数えます。</translation>
    </message>
    <message>
        <source>A 3D device layer owns the phone&apos;s rotation (tilt/poseTrack) — a flat rotationDeg keyframe track would spin the finished 3D render. Drop the track or scene3D.</source>
        <translation>3D デバイスは自分で回転します（tilt/poseTrack）。平面の rotationDeg トラックは完成した画像を回してしまいます。トラックか scene3D を外してください。</translation>
    </message>
    <message>
        <source>Pose times must be strictly ascending.</source>
        <translation>ポーズの時刻は昇順でなければなりません。</translation>
    </message>
    <message>
        <source>Depth times must be strictly ascending.</source>
        <translation>奥行きの時刻は昇順でなければなりません。</translation>
    </message>
    <message>
        <source>%1 has no effect beside %2, which takes its place.</source>
        <translation>%2があるため、%1 は効果がありません。</translation>
    </message>
    <message>
        <source>position has no effect here. %1.</source>
        <translation>position はここでは効果がありません。%1。</translation>
    </message>
    <message>
        <source>Keyframe t must be ≥ 0 (layer-local clock).</source>
        <translation>キーフレームの t は 0 以上でなければなりません（レイヤーの先頭から）。</translation>
    </message>
    <message>
        <source>Keyframe times must be strictly ascending (%1 after %2).</source>
        <translation>キーフレームの時刻は昇順でなければなりません（%2 の後に %1）。</translation>
    </message>
    <message>
        <source>Opacity %1 is outside 0…1 — it renders clamped.</source>
        <translation>不透明度 %1 は 0…1 の範囲外なので、制限されます。</translation>
    </message>
    <message>
        <source>Scale must be &gt; 0 (scale interpolates in log space).</source>
        <translation>scale は 0 より大きくなければなりません（対数で補間されます）。</translation>
    </message>
    <message>
        <source>Both an opacity track and a fading enter/exit phase — the two multiply into a double-fade.</source>
        <translation>不透明度のトラックとフェードする enter/exit の両方があり、二重にフェードします。</translation>
    </message>
    <message>
        <source>Unknown effect &quot;%1&quot; — must be one of %2.</source>
        <translation>エフェクト「%1」はありません。使えるもの：%2。</translation>
    </message>
    <message>
        <source>fromSec must be ≥ 0 (scene-local clock).</source>
        <translation>fromSec は 0 以上でなければなりません（シーンの先頭から）。</translation>
    </message>
    <message>
        <source>Layer starts at %1s but the scene ends at %2s.</source>
        <translation>レイヤーは %1 秒に始まりますが、シーンは %2 秒に終わります。</translation>
    </message>
    <message>
        <source>durationSec must be &gt; 0 (omit it to run to the scene end).</source>
        <translation>durationSec は 0 より大きくなければなりません（省略するとシーンの終わりまで続きます）。</translation>
    </message>
    <message>
        <source>Layer window ends at %1s, past the scene end (%2s).</source>
        <translation>レイヤーはシーンの終わり（%2 秒）より後の %1 秒に終わります。</translation>
    </message>
    <message>
        <source>Mark reference has an empty mark name.</source>
        <translation>参照するマークの名前が空です。</translation>
    </message>
    <message>
        <source>clip &quot;%1&quot; doesn&apos;t match any device layer id in this scene%2.</source>
        <translation>clip「%1」はこのシーンのどのデバイスレイヤーの id でもありません%2。</translation>
    </message>
    <message>
        <source>Mark references need a device layer (with a video screen) in the same scene — this scene has none.</source>
        <translation>マークの参照には同じシーンに（動画を映す）デバイスレイヤーが必要ですが、ありません。</translation>
    </message>
    <message>
        <source>This scene has %1 device layers — set &quot;clip&quot; on the mark reference to pick one (device ids: %2).</source>
        <translation>このシーンには %1 個のデバイスレイヤーがあります。「clip」で一つを選んでください（id：%2）。</translation>
    </message>
    <message>
        <source>There is no rule &quot;%1&quot; to mute; `tavix lint --codes` lists them.</source>
        <translation>ルール「%1」はありません。`tavix lint --codes` で一覧できます。</translation>
    </message>
    <message>
        <source>There is no %1 &quot;%2&quot;, so the device does not move by it. Use one of %3.</source>
        <translation>%1「%2」はないため、デバイスは動きません。使えるもの：%3。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no key here, and is not read. The keys are %2.</source>
        <translation>「%1」はここでは使えないキーなので、読まれません。使えるキー：%2。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not known here and is read as &quot;%2&quot;. Use one of %3.</source>
        <translation>「%1」はここでは使えないため、「%2」として読まれます。使えるもの：%3。</translation>
    </message>
    <message>
        <source>%1 is read as %2; it must be %3.</source>
        <translation>%1 は %2 として読まれます。値は%3でなければなりません。</translation>
    </message>
    <message>
        <source>%1 It is left out.</source>
        <translation>%1 これは省かれます。</translation>
    </message>
    <message>
        <source>Did you mean &quot;%1&quot;?</source>
        <translation>「%1」のことですか？</translation>
    </message>
    <message>
        <source>Shape width/heightFraction must be &gt; 0.</source>
        <translation>図形の widthFraction と heightFraction は 0 より大きくなければなりません。</translation>
    </message>
    <message>
        <source>Video layer has an empty path.</source>
        <translation>動画レイヤーのパスが空です。</translation>
    </message>
    <message>
        <source>trimEndSec (%1) must be after trimStartSec (%2).</source>
        <translation>trimEndSec（%1）は trimStartSec（%2）より後でなければなりません。</translation>
    </message>
    <message>
        <source>Image layer has an empty path.</source>
        <translation>画像レイヤーのパスが空です。</translation>
    </message>
    <message>
        <source>Transition durationSec (or durationBeats on a music grid) is required and must be &gt; 0 (the tempo decision is always explicit).</source>
        <translation>トランジションには 0 より大きい durationSec（音楽のビートがあれば durationBeats）が必要です。</translation>
    </message>
    <message>
        <source>Transition (%1s) is longer than the shorter adjacent scene (%2s) — both scenes must outlive the overlap.</source>
        <translation>トランジション（%1 秒）が隣の短いシーン（%2 秒）より長くなっています。</translation>
    </message>
    <message>
        <source>flip has no 2-D presentation — it renders as a wipe here.</source>
        <translation>flip は平面では表現できないため、ワイプになります。</translation>
    </message>
    <message>
        <source>Bouncy transition timing (damping %1) — counts as the scene&apos;s one accent.</source>
        <translation>弾むトランジション（減衰 %1）は、このシーンの一つのアクセントと数えられます。</translation>
    </message>
    <message>
        <source>%1: durationSec must be &gt; 0.</source>
        <translation>%1：durationSec は 0 より大きくなければなりません。</translation>
    </message>
    <message>
        <source>%1 runs %2s — scenes over 30s usually want a cut (&quot;let time solve layout&quot;).</source>
        <translation>%1 は %2 秒あります。30 秒を超えるシーンは分けるのが普通です。</translation>
    </message>
    <message>
        <source>%1 is the last scene — a transition needs a next scene to join.</source>
        <translation>%1 は最後のシーンです。トランジションには次のシーンが必要です。</translation>
    </message>
    <message>
        <source>%1 has %2 3D device layers — each one is a full 3D render per frame; expect roughly %3× frame cost.</source>
        <translation>%1 には 3D デバイスが %2 個あります。それぞれ毎フレーム描かれるため、およそ %3 倍の時間がかかります。</translation>
    </message>
    <message>
        <source>%1 shows &gt;2 text layers at once — give each message its own moment.</source>
        <translation>%1 は 3 つ以上の文字を同時に見せています。一つずつ見せてください。</translation>
    </message>
    <message>
        <source>%1 has two focal layers (device/full-bleed video) at once — one focal point per frame.</source>
        <translation>%1 には主役（デバイスか全面の動画）が同時に二つあります。一つにしてください。</translation>
    </message>
    <message>
        <source>%1 has %2 bouncy springs (damping &lt; 0.7) — one accent per scene, damping ≥ 0.8 elsewhere.</source>
        <translation>%1 には弾むばね（減衰 &lt; 0.7）が %2 個あります。一つだけにして、他は 0.8 以上にしてください。</translation>
    </message>
    <message>
        <source>Unknown kinetic preset &quot;%1&quot; — must be one of %2.</source>
        <translation>文字の動き「%1」はありません。使えるもの：%2。</translation>
    </message>
    <message>
        <source>alignment must be left|center|right.</source>
        <translation>alignment は left、center、right のいずれかです。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; shows for %2s — under the readability floor (%3s for %4 words).</source>
        <translation>「%1」の表示は %2 秒で、読むには短すぎます（最低 %3 秒、%4 語）。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; shows for %2s — under the readability floor (%3s for %4 word).</source>
        <translation>「%1」の表示は %2 秒で、読むには短すぎます（最低 %3 秒、%4 語）。</translation>
    </message>
    <message>
        <source>sizeFraction %1 is below the label minimum %2 (≈32px @1080w) — unreadable at video distance.</source>
        <translation>sizeFraction %1 はラベルの最小値 %2（幅 1080 で約 32 px）より小さく、読めません。</translation>
    </message>
    <message>
        <source>sizeFraction %1 is below the supporting-copy minimum %2 (≈44px @1080w).</source>
        <translation>sizeFraction %1 は文章の最小値 %2（幅 1080 で約 44 px）より小さい値です。</translation>
    </message>
    <message>
        <source>Text center (%1, %2)px is outside the safe area (within %3×%4px of center (%5, %6)).</source>
        <translation>文字の中心（%1, %2）px がセーフエリアの外です（中心（%5, %6）から %3×%4 px 以内）。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; looks like a path but not a font file (.ttf/.otf/.ttc).</source>
        <translation>「%1」はパスのようですが、フォントファイル（.ttf/.otf/.ttc）ではありません。</translation>
    </message>
    <message>
        <source>Text layer has empty copy.</source>
        <translation>文字レイヤーに文字がありません。</translation>
    </message>
    <message>
        <source>%1 has no effect on a %2, which has %3.</source>
        <translation>%2 で %1 は効果がありません（使えるもの：%3）。</translation>
    </message>
    <message>
        <source>There is no word %1: the text has %2, counted from 0.</source>
        <translation>単語 %1 はありません。文字列には%2あり、0 から数えます。</translation>
    </message>
    <message>
        <source>%1: durationSec (%2) and durationBeats (%3 = %4s) both set — pick one duration authority.</source>
        <translation>%1：durationSec（%2）と durationBeats（%3 = %4 秒）の両方が指定されています。一つにしてください。</translation>
    </message>
    <message>
        <source>%1: the device motion runs to %2s but durationBeats: %3 resolves to %4s — the tail will be cut.</source>
        <translation>%1：デバイスの動きは %2 秒までですが、durationBeats: %3 は %4 秒なので、終わりが切れます。</translation>
    </message>
    <message>
        <source>Use durationBeats: %1 to fit it.</source>
        <translation>durationBeats: %1 にすると収まります。</translation>
    </message>
    <message>
        <source>%1 (%2) and %3 (%4) both set — pick one duration authority.</source>
        <translation>%1（%2）と %3（%4）の両方が指定されています。一つにしてください。</translation>
    </message>
    <message>
        <source>Beat %1 is %2s on the global clock — before this scene starts (%3s).</source>
        <translation>ビート %1 は全体の %2 秒で、このシーンの始まり（%3 秒）より前です。</translation>
    </message>
    <message>
        <source>Beat %1 resolves to scene time %2s — at or before the layer&apos;s start (%3s).</source>
        <translation>ビート %1 はシーンの %2 秒で、レイヤーの始まり（%3 秒）より後ではありません。</translation>
    </message>
    <message>
        <source>Beat %1 resolves to %2s — before the composition starts.</source>
        <translation>ビート %1 は %2 秒で、コンポジションの始まりより前です。</translation>
    </message>
    <message>
        <source>Beat keyframes need a concrete or beat-valued layer start — this layer starts at a recording mark.</source>
        <translation>ビートのキーフレームには、秒かビートで始まるレイヤーが必要です。このレイヤーは録画のマークで始まります。</translation>
    </message>
    <message>
        <source>Use atMark for the keyframe too, or give the layer fromBeat/fromSec.</source>
        <translation>キーフレームにも atMark を使うか、レイヤーに fromBeat か fromSec を指定してください。</translation>
    </message>
    <message>
        <source>%1 must reference the SAME device layer&apos;s clip.</source>
        <translation>%1 は同じデバイスレイヤーのクリップを参照しなければなりません。</translation>
    </message>
    <message>
        <source>Mark &quot;%1&quot; resolves to %2s — before the clip&apos;s trimStartSec (%3s).</source>
        <translation>マーク「%1」は %2 秒で、クリップの trimStartSec（%3 秒）より前です。</translation>
    </message>
    <message>
        <source>Mark &quot;%1&quot; resolves to scene time %2s — before the scene starts.</source>
        <translation>マーク「%1」はシーンの %2 秒で、シーンの始まりより前です。</translation>
    </message>
    <message>
        <source>Mark &quot;%1&quot; resolves to scene time %2s — at or before the layer&apos;s start (%3s).</source>
        <translation>マーク「%1」はシーンの %2 秒で、レイヤーの始まり（%3 秒）より後ではありません。</translation>
    </message>
    <message>
        <source>Mark &quot;%1&quot; has no end time — only scripted steps (a `durationSec` scroll) land &quot;#end&quot; marks.</source>
        <translation>マーク「%1」に終わりの時刻はありません。「#end」は `durationSec` のある手順だけが残します。</translation>
    </message>
    <message>
        <source>%1 has %2 device layers — set &quot;clip&quot; on the mark reference to pick one%3.</source>
        <translation>%1 には %2 個のデバイスレイヤーがあります。「clip」で一つを選んでください%3。</translation>
    </message>
    <message>
        <source>Mark &quot;%1&quot; references clip &quot;%2&quot;, but %3 has no device layer with that id%4.</source>
        <translation>マーク「%1」は clip「%2」を参照していますが、%3 にその id のデバイスレイヤーはありません%4。</translation>
    </message>
    <message>
        <source>Mark references need a VIDEO device screen — the device layer plays a still, which has no timeline sidecar.</source>
        <translation>マークの参照には動画を映すデバイスが必要です。静止画にはタイムラインのファイルがありません。</translation>
    </message>
    <message>
        <source>No timeline sidecar for &quot;%1&quot; — expected %2 next to the clip (tavix run writes it; the .tavixcomp bundler copies it).</source>
        <translation>「%1」のタイムラインのファイルがありません。クリップの隣に %2 が必要です（tavix run が書きます）。</translation>
    </message>
    <message>
        <source>Re-copy the recording together with its .timeline.json, or drop the mark references.</source>
        <translation>録画を .timeline.json と一緒にコピーし直すか、マークの参照を外してください。</translation>
    </message>
    <message>
        <source>Mark &quot;%1&quot; not found in the sidecar for &quot;%2&quot;. Available marks: %3.</source>
        <translation>マーク「%1」は「%2」のタイムラインにありません。使えるマーク：%3。</translation>
    </message>
    <message>
        <source>Mark &quot;%1&quot; is ambiguous — %2 steps carry it. Give each step a distinct target.label in the FlowSpec.</source>
        <translation>マーク「%1」は %2 個の手順にあり、区別できません。FlowSpec で手順ごとに異なる target.label を付けてください。</translation>
    </message>
    <message>
        <source>%1: the %2&apos;s footage ends %3s into the layer window but the window runs to %4s — the last frame freezes for %5s.</source>
        <translation>%1：%2の映像は %3 秒で終わりますが、レイヤーは %4 秒まで続き、最後のフレームが %5 秒止まります。</translation>
    </message>
    <message>
        <source>Shorten the scene/window (durationSec/durationBeats) to fit the footage, trim later, or re-record a longer segment — recordings never stretch.</source>
        <translation>シーンかレイヤーを短くする（durationSec/durationBeats）、後ろで切る、または長く録り直してください。録画は引き伸ばされません。</translation>
    </message>
    <message>
        <source>A part of %1 cannot be read: over a fifth of a line its contrast is %2:1 against what lies under it there.</source>
        <translation>%1の一部が読めません。行の五分の一以上で、背景とのコントラストが %2:1 しかありません。</translation>
    </message>
    <message>
        <source>Move it off what it crosses, or put a panel or a shadow under the text.</source>
        <translation>重なるものから離すか、文字の下に面か影を置いてください。</translation>
    </message>
    <message>
        <source>%1 has a contrast of %2:1 against what lies under it; %3:1 is the least for text of this size.</source>
        <translation>%1の背景とのコントラストは %2:1 です。この大きさでは %3:1 以上が必要です。</translation>
    </message>
    <message>
        <source>Choose a colour that is lighter or darker, or put a panel or a shadow under the text.</source>
        <translation>より明るいか暗い色を選ぶか、文字の下に面か影を置いてください。</translation>
    </message>
    <message>
        <source>There is no clip &quot;%1&quot;.</source>
        <translation>クリップ「%1」がありません。</translation>
    </message>
    <message>
        <source>The clip &quot;%1&quot; holds no picture.</source>
        <translation>クリップ「%1」に映像がありません。</translation>
    </message>
    <message>
        <source>More than three %1 within a second %2 (%3), over %4 % of a field of 10 degrees, where a quarter is the most. They can cause seizures.</source>
        <translation>%2（%3）に、一秒間に三回を超える%1があります。10 度の視野の %4 % に及び、四分の一が限度です。発作を起こすおそれがあります。</translation>
    </message>
    <message>
        <source>Flash at most three times in any second, over a smaller area, or with less difference.</source>
        <translation>どの一秒でも三回以内にするか、面積か明暗の差を小さくしてください。</translation>
    </message>
    <message>
        <source>The film is black %1 (%2).</source>
        <translation>%1に画面が真っ黒です（%2）。</translation>
    </message>
    <message>
        <source>Nothing moves %1 (%2).</source>
        <translation>%1に何も動きません（%2）。</translation>
    </message>
    <message>
        <source>There is no reel &quot;%1&quot;.</source>
        <translation>リール「%1」がありません。</translation>
    </message>
    <message>
        <source>There is no background &quot;%1&quot;; use one of %2.</source>
        <translation>背景「%1」はありません。使えるもの：%2。</translation>
    </message>
    <message>
        <source>There is no sound file &quot;%1&quot;.</source>
        <translation>音声ファイル「%1」がありません。</translation>
    </message>
    <message>
        <source>The font file &quot;%1&quot; is missing or holds no font; &quot;%2&quot; stands in for it. Check its path, which starts at the document&apos;s folder.</source>
        <translation>フォントファイル「%1」がないか、フォントではないため、「%2」で代用します。パスは書類のフォルダから始まります。</translation>
    </message>
    <message>
        <source>The font &quot;%1&quot; is not on this machine; &quot;%2&quot; stands in for it. Bring its file in the bundle and name that as the font.</source>
        <translation>フォント「%1」はこのコンピュータにないため、「%2」で代用します。ファイルをバンドルに入れ、それをフォントに指定してください。</translation>
    </message>
    <message>
        <source>%1 is broken inside a word: its letters are set apart by trackingEm, and a line of %2 px has no room for all of it.</source>
        <translation>%1が単語の途中で改行されます。trackingEm で字間が広がり、%2 px の行に入りません。</translation>
    </message>
    <message>
        <source>Make trackingEm or sizeFraction smaller, maxWidthFraction larger, or end lines by line feeds.</source>
        <translation>trackingEm か sizeFraction を小さく、maxWidthFraction を大きくするか、自分で改行してください。</translation>
    </message>
    <message>
        <source>%1 is broken inside a word: a line has room for %2 px, and a word is wider at this size.</source>
        <translation>%1が単語の途中で改行されます。行の幅は %2 px で、この大きさでは単語が入りません。</translation>
    </message>
    <message>
        <source>Make sizeFraction smaller or maxWidthFraction larger.</source>
        <translation>sizeFraction を小さくするか、maxWidthFraction を大きくしてください。</translation>
    </message>
    <message>
        <source>%1 takes %2 lines, %3 px high, in a frame of %4 px.</source>
        <translation>%1は %2 行、高さ %3 px で、画面の高さ %4 px を超えます。</translation>
    </message>
    <message>
        <source>Make it smaller, shorter or wider, or let several layers say it one after another.</source>
        <translation>小さく、短く、または幅を広くするか、複数のレイヤーで順に見せてください。</translation>
    </message>
    <message>
        <source>%1 is drawn %2 px from where it is put, to stay inside the frame with its margins.</source>
        <translation>%1は、余白を残して画面に収めるため、置いた場所から %2 px ずれて描かれます。</translation>
    </message>
    <message>
        <source>Put it at %1, where it is drawn, or make it smaller.</source>
        <translation>描かれている %1 に置くか、小さくしてください。</translation>
    </message>
    <message>
        <source>%1 is never seen: %2</source>
        <translation>%1は一度も見えません。%2</translation>
    </message>
    <message>
        <source>Device %1 of the %2 of this formation is outside the frame for most of the time.</source>
        <translation>このフォーメーションの %2 台のうち %1 番は、ほとんどの間画面の外にあります。</translation>
    </message>
    <message>
        <source>Devices %1 of the %2 of this formation are outside the frame for most of the time.</source>
        <translation>このフォーメーションの %2 台のうち %1 番は、ほとんどの間画面の外にあります。</translation>
    </message>
    <message>
        <source>Use a smaller spread or fewer devices.</source>
        <translation>間隔を狭めるか、台数を減らしてください。</translation>
    </message>
    <message>
        <source>%1 shows nothing but its background for its first %2 s.</source>
        <translation>%1 は最初の %2 秒間、背景しか見えません。</translation>
    </message>
    <message>
        <source>Let something appear within half a second.</source>
        <translation>0.5 秒以内に何かを見せてください。</translation>
    </message>
    <message>
        <source>Cannot read the image &quot;%1&quot;. %2</source>
        <translation>画像「%1」を読めません。%2</translation>
    </message>
</context>
<context>
    <name>FindingPart</name>
    <message>
        <source>layer</source>
        <translation>レイヤー</translation>
    </message>
    <message>
        <source>keyframe</source>
        <translation>キーフレーム</translation>
    </message>
    <message>
        <source> for the start</source>
        <translation> （始まり）</translation>
    </message>
    <message>
        <source> for the end</source>
        <translation> （終わり）</translation>
    </message>
    <message>
        <source> (device ids: %1)</source>
        <translation> （デバイスの id：%1）</translation>
    </message>
    <message>
        <source>motion</source>
        <translation>動き</translation>
    </message>
    <message>
        <source>formation</source>
        <translation>フォーメーション</translation>
    </message>
    <message>
        <source>at least %1</source>
        <translation>%1 以上</translation>
    </message>
    <message>
        <source>at most %1</source>
        <translation>%1 以下</translation>
    </message>
    <message>
        <source>between %1 and %2</source>
        <translation>%1 から %2 まで</translation>
    </message>
    <message>
        <source>the formation &quot;%1&quot;</source>
        <translation>フォーメーション「%1」</translation>
    </message>
    <message>
        <source>the motion &quot;%1&quot;</source>
        <translation>動き「%1」</translation>
    </message>
    <message>
        <source>the formation &quot;%1&quot;, which leaves the device flat</source>
        <translation>デバイスを平面のままにするフォーメーション「%1」</translation>
    </message>
    <message>
        <source>the motion &quot;%1&quot;, which leaves the device flat</source>
        <translation>デバイスを平面のままにする動き「%1」</translation>
    </message>
    <message>
        <source>A fill covers the whole frame</source>
        <translation>塗りは画面全体を覆います</translation>
    </message>
    <message>
        <source>A video stands in its rect, or fills the frame</source>
        <translation>動画は rect の中に置かれるか、画面全体に広がります</translation>
    </message>
    <message>
        <source>A device stands in the middle of the frame, moved by its placement</source>
        <translation>デバイスは画面の中央に立ち、placement で動きます</translation>
    </message>
    <message>
        <source>no parameters</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>1 word</source>
        <translation>1 語が</translation>
    </message>
    <message>
        <source>%1 words</source>
        <translation>%1 語が</translation>
    </message>
    <message>
        <source>none (older recording without labels — re-record)</source>
        <translation>なし（名前のない古い録画です。録り直してください）</translation>
    </message>
    <message>
        <source>device screen</source>
        <translation>デバイスの画面</translation>
    </message>
    <message>
        <source>reel on the device screen</source>
        <translation>デバイスのリール</translation>
    </message>
    <message>
        <source>video</source>
        <translation>動画</translation>
    </message>
    <message>
        <source>this %1 layer</source>
        <translation>このレイヤー（%1）</translation>
    </message>
    <message>
        <source>This %1 layer</source>
        <translation>このレイヤー（%1）</translation>
    </message>
    <message>
        <source>The emphasis in %1</source>
        <translation>%1の強調</translation>
    </message>
    <message>
        <source>text</source>
        <translation>文字</translation>
    </message>
    <message>
        <source>device</source>
        <translation>デバイス</translation>
    </message>
    <message>
        <source>image</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>shape</source>
        <translation>図形</translation>
    </message>
    <message>
        <source>fill</source>
        <translation>塗り</translation>
    </message>
    <message>
        <source>%1 lies in front of all of it.</source>
        <translation>%1がすべてを覆っています。</translation>
    </message>
    <message>
        <source>it stays outside the frame.</source>
        <translation>画面の外に出たままです。</translation>
    </message>
    <message>
        <source>it stays too small or too clear to be seen.</source>
        <translation>小さすぎるか透明すぎます。</translation>
    </message>
    <message>
        <source>it has no size.</source>
        <translation>大きさがありません。</translation>
    </message>
    <message>
        <source>it stays clear; look at its opacity.</source>
        <translation>透明なままです。不透明度を見てください。</translation>
    </message>
    <message>
        <source>flashes</source>
        <translation>点滅</translation>
    </message>
    <message>
        <source>flashes of red</source>
        <translation>赤い点滅</translation>
    </message>
    <message>
        <source>from %1 to %2 s</source>
        <translation>%1 秒から %2 秒まで</translation>
    </message>
    <message>
        <source>There is no such file.</source>
        <translation>そのファイルはありません。</translation>
    </message>
    <message>
        <source>It is not a file.</source>
        <translation>ファイルではありません。</translation>
    </message>
    <message>
        <source>The file cannot be read.</source>
        <translation>ファイルを開けません。</translation>
    </message>
    <message>
        <source>It is not a PNG, JPEG, WebP, HEIC or AVIF image.</source>
        <translation>PNG、JPEG、WebP、HEIC、AVIF の画像ではありません。</translation>
    </message>
    <message>
        <source>The image is damaged: the file ends early.</source>
        <translation>画像が壊れています。ファイルが途中で終わっています。</translation>
    </message>
</context>
<context>
    <name>Template</name>
    <message>
        <source>A line, a promise and a date: moving type in the dark, with a chime.</source>
        <translation>一行と約束と日付。暗い画面に動く文字と、一つの音。</translation>
    </message>
    <message>
        <source>One phone in space: its entrance, its turn with three numbers, a name.</source>
        <translation>空間に立つ一台の電話。登場、三つの数字と回転、そして名前。</translation>
    </message>
    <message>
        <source>Three features, each with its screen, its headline and its colour.</source>
        <translation>三つの機能を、それぞれの画面と見出しと色で。</translation>
    </message>
    <message>
        <source>News in three steps: what it is, what is in it, what to do.</source>
        <translation>三段階のお知らせ。何か、何が入っているか、どうするか。</translation>
    </message>
    <message>
        <source>Words and a phone cut to music at 120 beats a minute.</source>
        <translation>毎分 120 拍の音楽に合わせた言葉と電話。</translation>
    </message>
    <message>
        <source>A question, three screens and an answer, for a feed.</source>
        <translation>問いかけと三つの画面と答え。フィード向け。</translation>
    </message>
</context>
</TS>
