<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja">
<context>
    <name>CAboutDlg</name>
    <message>
        <source>Version</source>
        <translation>バージョン</translation>
    </message>
    <message>
        <source>Build</source>
        <translation>ビルド</translation>
    </message>
    <message>
        <source>64 bit</source>
        <translation>64 ビット</translation>
    </message>
    <message>
        <source>Visit our home page</source>
        <translation>ホームページへ</translation>
    </message>
</context>
<context>
    <name>CAboutSorelDlg</name>
    <message>
        <source>Version</source>
        <translation>バージョン</translation>
    </message>
</context>
<context>
    <name>CLanguageManager</name>
    <message>
        <source>language name</source>
        <translation>日本語</translation>
    </message>
    <message>
        <source>language number</source>
        <translation>1041</translation>
    </message>
</context>
<context>
    <name>CLanguageTest</name>
    <message>
        <source>language name</source>
        <translation>日本語</translation>
    </message>
    <message>
        <source>language number</source>
        <translation>1041</translation>
    </message>
</context>
<context>
    <name>CMessageBox</name>
    <message>
        <source>Dialog</source>
        <translation>ダイアログ</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
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
        <source>Rotate</source>
        <translation>回転</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Don&apos;t save</source>
        <translation>保存しない</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Don&apos;t quit</source>
        <translation>終了しない</translation>
    </message>
    <message>
        <source>Quit without saving</source>
        <translation>保存せずに終了</translation>
    </message>
</context>
<context>
    <name>HostWarningDlg</name>
    <message>
        <source>Open original image</source>
        <translation>元の画像を開く</translation>
    </message>
    <message>
        <source>Your image cannot be modified.</source>
        <translation>この画像は Vexa Rectivo 3 では編集できません。</translation>
    </message>
    <message>
        <source>Why cannot I save with this host application?</source>
        <translation>このホストアプリケーションで Vexa Rectivo 3 の編集内容を保存できないのはなぜですか?</translation>
    </message>
    <message>
        <source>Unfortunately this plugin cannot be used as a plugin for this host application.</source>
        <translation>申し訳ありませんが、Vexa Rectivo 3 はこのホストアプリケーションのプラグインとしては使用できません。このプラグインは画像のサイズを変更しますが、現在のホストアプリケーションではそれができません。
ソフトウェアとその機能を試すことはできますが、変更内容を保存することはできません。
Vexa Rectivo 3 はスタンドアロンアプリケーションとしても使用できます。</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Try</source>
        <translation>試用する</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>px</source>
        <translation>px</translation>
    </message>
    <message>
        <source>in</source>
        <translation>インチ</translation>
    </message>
    <message>
        <source>cm</source>
        <translation>cm</translation>
    </message>
    <message>
        <source>mm</source>
        <translation>mm</translation>
    </message>
    <message>
        <source>MB</source>
        <translation>MB</translation>
    </message>
    <message>
        <source>KB</source>
        <translation>KB</translation>
    </message>
    <message>
        <source>B</source>
        <translation>B</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>エラー</translation>
    </message>
    <message>
        <source>Windows small space message on drive %1</source>
        <translation>ディスク %1 の空き容量が不足しているため、Vexa Rectivo 3 を起動できません。
ディスクから不要なファイルを削除してから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Out of memory. Program will be closed.</source>
        <translation>使用可能なメモリが不足しているため、Vexa Rectivo 3 を終了する必要があります。
ほかのプログラムをいくつか終了してから、Vexa Rectivo 3 をもう一度起動してください。</translation>
    </message>
    <message>
        <source>%1 has run out of memory. The application may now become unstable. Please close %2 and Photoshop, quit all other programs running, and try again.</source>
        <translation>%1 のメモリが不足しました。アプリケーションが不安定になる可能性があります。%2 と Photoshop を終了し、実行中のほかのプログラムもすべて終了してから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Unhandled exception. Program will be closed.</source>
        <translation>未処理の例外が発生したため、Vexa Rectivo 3 を終了する必要があります。</translation>
    </message>
</context>
<context>
    <name>aboutDlg</name>
    <message>
        <source>About %1</source>
        <translation>%1 について</translation>
    </message>
    <message>
        <source>Shift your perspective</source>
        <translation>視点を変えよう</translation>
    </message>
    <message>
        <source>%1 and the Vexa logo are trademarks of Vexa Labs. All rights reserved.&lt;br&gt;&lt;br&gt;This software uses the components whose licences follow.&lt;br&gt;&lt;br&gt;</source>
        <translation>%1 および Vexa のロゴは Vexa Labs の商標です。無断複写・転載を禁じます。&lt;br&gt;&lt;br&gt;本ソフトウェアは、以下のライセンスのコンポーネントを使用しています。&lt;br&gt;&lt;br&gt;</translation>
    </message>
</context>
<context>
    <name>aboutSorelDlg</name>
    <message>
        <source>About</source>
        <translation>バージョン情報</translation>
    </message>
    <message>
        <source>Sorel Collection by Vexa</source>
        <translation>Vexa の Sorel Collection</translation>
    </message>
</context>
</TS>
