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
        <source>Colour</source>
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
        <source>Word indices</source>
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
</TS>
