<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP">
<context>
    <name>ArchivePage</name>
    <message>
        <source>%1 files compressed into %2 (%3 bytes).</source>
        <translation>%1 個のファイルを %2 に圧縮しました（%3 バイト）。</translation>
    </message>
    <message>
        <source>Compression failed.</source>
        <translation>圧縮に失敗しました。</translation>
    </message>
    <message>
        <source>%1 files extracted into %2.</source>
        <translation>%1 個のファイルを %2 に展開しました。</translation>
    </message>
    <message>
        <source>Writing the files: %p%</source>
        <translation>ファイルを書き込み中: %p%</translation>
    </message>
    <message>
        <source>Extracting: %p%</source>
        <translation>展開中: %p%</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完了</translation>
    </message>
    <message>
        <source>Compress a set of generated files with the archive helpers, then extract it again</source>
        <translation>生成したファイル群をアーカイブ機能で圧縮し、再び展開します</translation>
    </message>
    <message>
        <source> files</source>
        <translation> ファイル</translation>
    </message>
    <message>
        <source>Compress</source>
        <translation>圧縮</translation>
    </message>
    <message>
        <source>Extract</source>
        <translation>展開</translation>
    </message>
</context>
<context>
    <name>ShowcaseWindow</name>
    <message>
        <source>The image was changed. Do you want to save the changes before closing it?</source>
        <translation>画像が変更されました。閉じる前に変更を保存しますか?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>はい</translation>
    </message>
    <message>
        <source>No</source>
        <translation>いいえ</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Don&apos;t save</source>
        <translation>保存しない</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Closed</source>
        <translation>閉じました</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>情報</translation>
    </message>
    <message>
        <source>The image was saved.</source>
        <translation>画像を保存しました。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>The file cannot be opened.</source>
        <translation>ファイルを開けません。</translation>
    </message>
    <message>
        <source>Critical</source>
        <translation>重大</translation>
    </message>
    <message>
        <source>The operation failed.</source>
        <translation>操作に失敗しました。</translation>
    </message>
    <message>
        <source>Yes / No</source>
        <translation>はい / いいえ</translation>
    </message>
    <message>
        <source>Rotate question</source>
        <translation>回転の確認</translation>
    </message>
    <message>
        <source>Rotate the image?</source>
        <translation>画像を回転しますか?</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>回転</translation>
    </message>
    <message>
        <source>Save / Don&apos;t save / Cancel</source>
        <translation>保存 / 保存しない / キャンセル</translation>
    </message>
    <message>
        <source>Background processing</source>
        <translation>バックグラウンド処理</translation>
    </message>
    <message>
        <source>The image is still being processed.</source>
        <translation>画像はまだ処理中です。</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Don&apos;t quit</source>
        <translation>終了しない</translation>
    </message>
    <message>
        <source>Host warning</source>
        <translation>ホストの警告</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>続行</translation>
    </message>
    <message>
        <source>About</source>
        <translation>バージョン情報</translation>
    </message>
    <message>
        <source>About Sorel</source>
        <translation>Sorel について</translation>
    </message>
    <message>
        <source>Folder chooser</source>
        <translation>フォルダーの選択</translation>
    </message>
    <message>
        <source>Choose a folder</source>
        <translation>フォルダーを選択</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>キャンセルしました</translation>
    </message>
    <message>
        <source>UtilsDll showcase</source>
        <translation>UtilsDll ショーケース</translation>
    </message>
    <message>
        <source>Language (%1):</source>
        <translation>言語 (%1):</translation>
    </message>
    <message>
        <source>Dialogs</source>
        <translation>ダイアログ</translation>
    </message>
    <message>
        <source>Start-up</source>
        <translation>起動</translation>
    </message>
    <message>
        <source>Drawing</source>
        <translation>描画</translation>
    </message>
    <message>
        <source>Archives</source>
        <translation>アーカイブ</translation>
    </message>
    <message>
        <source>SOAP</source>
        <translation>SOAP</translation>
    </message>
    <message>
        <source>Run on a temporary settings store</source>
        <translation>一時的な設定ストアで実行</translation>
    </message>
</context>
<context>
    <name>SoapPage</name>
    <message>
        <source>Waiting for the answer...</source>
        <translation>応答を待っています...</translation>
    </message>
    <message>
        <source>Fault: %1</source>
        <translation>フォールト: %1</translation>
    </message>
    <message>
        <source>No fault.</source>
        <translation>フォールトなし。</translation>
    </message>
    <message>
        <source>Host</source>
        <translation>ホスト</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>ポート</translation>
    </message>
    <message>
        <source>HTTPS</source>
        <translation>HTTPS</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>パス</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>アクション</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>メソッド</translation>
    </message>
    <message>
        <source>Namespace</source>
        <translation>名前空間</translation>
    </message>
    <message>
        <source>Arguments</source>
        <translation>引数</translation>
    </message>
    <message>
        <source>Use HTTPS</source>
        <translation>HTTPS を使用</translation>
    </message>
    <message>
        <source>Send the request</source>
        <translation>要求を送信</translation>
    </message>
    <message>
        <source>The request envelope</source>
        <translation>要求のエンベロープ</translation>
    </message>
    <message>
        <source>The response envelope</source>
        <translation>応答のエンベロープ</translation>
    </message>
</context>
<context>
    <name>ToolsPage</name>
    <message numerus="yes">
        <source>&quot;%1&quot; (shown %n time(s))</source>
        <translation>
            <numerusform>「%1」（%n 回表示）</numerusform>
        </translation>
    </message>
    <message>
        <source>The seven tool cursors</source>
        <translation>7 種類のツールカーソル</translation>
    </message>
    <message>
        <source>A tool line, tiled and stretched</source>
        <translation>タイル状と引き伸ばしのツールライン</translation>
    </message>
    <message>
        <source>An icon ignoring, keeping and expanding its aspect</source>
        <translation>縦横比を無視・維持・拡大したアイコン</translation>
    </message>
    <message>
        <source>A debounced field: the text below follows once typing pauses</source>
        <translation>デバウンスされた入力欄: 入力が止まると下のテキストが追従します</translation>
    </message>
</context>
</TS>
