<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>tarvin::AboutPanel</name>
    <message>
        <source>Finds files with identical content, groups them into sets and moves the copies you choose to the Trash.</source>
        <translation>内容が同じファイルを見つけてグループにまとめ、選んだコピーをゴミ箱に移動します。</translation>
    </message>
    <message>
        <source>About</source>
        <translation>このアプリについて</translation>
    </message>
    <message>
        <source>© Tarvin Software. All rights reserved.</source>
        <translation>© Tarvin Software. All rights reserved.</translation>
    </message>
</context>
<context>
    <name>tarvin::Alerts</name>
    <message>
        <source>Tarvin Duplicate File Remover</source>
        <translation>Tarvin Duplicate File Remover</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>tarvin::AppDelegate</name>
    <message>
        <source>A operation is in progress. Please stop the current process.</source>
        <translation>処理を実行中です。先に現在の処理を停止してください。</translation>
    </message>
    <message>
        <source>To scan other folders, return to the start screen first.</source>
        <translation>ほかのフォルダーをスキャンするには、先にホームに戻ってください。</translation>
    </message>
</context>
<context>
    <name>tarvin::CloseButton</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>tarvin::DeletionPanel</name>
    <message>
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Moving to the Trash</source>
        <translation>ゴミ箱に移動</translation>
    </message>
    <message>
        <source>Deleting files, please wait...</source>
        <translation>ファイルを削除しています。お待ちください…</translation>
    </message>
    <message>
        <source>Deletion progress</source>
        <translation>削除の進行状況</translation>
    </message>
    <message>
        <source>Marked files go to the Trash. You can put them back from there.</source>
        <translation>マークしたファイルはゴミ箱に移動し、後で元に戻せます。</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionListPanel</name>
    <message>
        <source>No exceptions</source>
        <translation>除外はありません</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Remove All Missing</source>
        <translation>ないものをすべて削除</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Files that you add to the exceptions are skipped by every later scan.</source>
        <translation>除外に追加したファイルは、以後のすべてのスキャンでスキップされます。</translation>
    </message>
    <message>
        <source>Exceptions</source>
        <translation>除外</translation>
    </message>
    <message>
        <source>Search names and folders</source>
        <translation>名前とフォルダーを検索</translation>
    </message>
    <message>
        <source>Search exceptions</source>
        <translation>除外を検索</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionListTexts</name>
    <message>
        <source>1 file</source>
        <translation>1 個のファイル</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1 個のファイル</translation>
    </message>
    <message>
        <source>1 file, not there any more</source>
        <translation>1 個のファイル、もう存在しません</translation>
    </message>
    <message>
        <source>%1 files, %2 not there any more</source>
        <translation>%1 個のファイル、%2 個はありません</translation>
    </message>
    <message>
        <source>%1 of 1 file</source>
        <translation>1 個中 %1 個のファイル</translation>
    </message>
    <message>
        <source>%1 of %2 files</source>
        <translation>%2 個中 %1 個のファイル</translation>
    </message>
    <message>
        <source>No exception matches &quot;%1&quot;.</source>
        <translation>「%1」に一致する除外はありません。</translation>
    </message>
    <message>
        <source>Exceptions</source>
        <translation>除外</translation>
    </message>
    <message>
        <source>The exceptions could not be saved.</source>
        <translation>除外を保存できませんでした。</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionPanel</name>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Add to Exceptions</source>
        <translation>除外に追加</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionRows</name>
    <message>
        <source>Not there any more</source>
        <translation>もう存在しません</translation>
    </message>
    <message>
        <source>Drive not attached</source>
        <translation>ドライブが接続されていません</translation>
    </message>
    <message>
        <source>%1, %2, not there any more</source>
        <comment>name of a file, its folder</comment>
        <translation>%1、%2、もう存在しません</translation>
    </message>
    <message>
        <source>%1, %2, drive not attached</source>
        <comment>name of a file, its folder</comment>
        <translation>%1、%2、ドライブが接続されていません</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>name of a file, its folder</comment>
        <translation>%1、%2</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>フォルダー</translation>
    </message>
</context>
<context>
    <name>tarvin::ExportTexts</name>
    <message>
        <source>Export Results</source>
        <translation>結果を書き出す</translation>
    </message>
    <message>
        <source>Duplicate files %1</source>
        <translation>重複ファイル %1</translation>
    </message>
    <message>
        <source>CSV</source>
        <translation>CSV</translation>
    </message>
    <message>
        <source>JSON</source>
        <translation>JSON</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>テキスト</translation>
    </message>
    <message>
        <source>1 set exported.</source>
        <translation>1 個のグループを書き出しました。</translation>
    </message>
    <message>
        <source>%1 sets exported.</source>
        <translation>%1 個のグループを書き出しました。</translation>
    </message>
    <message>
        <source>The results could not be exported.</source>
        <translation>結果を書き出せませんでした。</translation>
    </message>
    <message>
        <source>Exporting the results…</source>
        <translation>結果を書き出しています…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>tarvin::FileActions</name>
    <message>
        <source>Actions for %1</source>
        <comment>a menu; %1 is a file&apos;s name</comment>
        <translation>%1 の操作</translation>
    </message>
</context>
<context>
    <name>tarvin::FileDialogs</name>
    <message>
        <source>Add Folders</source>
        <translation>フォルダーを追加</translation>
    </message>
    <message>
        <source>Add Photos</source>
        <translation>写真を追加</translation>
    </message>
    <message>
        <source>Photos</source>
        <translation>写真</translation>
    </message>
    <message>
        <source>Only photos of these types can be added: %1.</source>
        <translation>追加できるのは次の種類の写真だけです: %1。</translation>
    </message>
    <message>
        <source>Folders not shown here can be dropped onto the list.</source>
        <translation>ここに表示されないフォルダーは、リストにドロップできます。</translation>
    </message>
    <message>
        <source>Photos not shown here can be dropped onto the list.</source>
        <translation>ここに表示されない写真は、リストにドロップできます。</translation>
    </message>
    <message>
        <source>Some of the chosen items cannot be added here. Please drop them onto the list.</source>
        <translation>選んだ項目の一部はここから追加できません。リストにドロップしてください。</translation>
    </message>
    <message>
        <source>%1 already exists. Do you want to replace it?</source>
        <translation>%1 は既に存在します。置き換えますか？</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>置き換える</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Some of the chosen items cannot be added here.</source>
        <translation>選んだ項目の一部はここから追加できません。</translation>
    </message>
</context>
<context>
    <name>tarvin::FileMenu</name>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>Open Containing Folder</source>
        <translation>保存場所のフォルダーを開く</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>パスをコピー</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>これを残す</translation>
    </message>
    <message>
        <source>Mark All in This Folder</source>
        <translation>このフォルダーをすべてマーク</translation>
    </message>
    <message>
        <source>Add to Exceptions…</source>
        <translation>除外に追加…</translation>
    </message>
</context>
<context>
    <name>tarvin::FileProperties</name>
    <message>
        <source> %1
Size                          : %2
Image Dimensions   : %3
Created Date           : %4
Modified Date         : %5</source>
        <translation> %1
サイズ&#x3000;&#x3000;：%2
画像サイズ：%3
作成日時&#x3000;：%4
更新日時&#x3000;：%5</translation>
    </message>
    <message>
        <source> %1
Size                       : %2
Created Date        : %3
Modified Date       : %4</source>
        <translation> %1
サイズ&#x3000;：%2
作成日時：%3
更新日時：%4</translation>
    </message>
</context>
<context>
    <name>tarvin::FileReasons</name>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>場所</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>理由</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>ほか %1 件</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>フォルダー</translation>
    </message>
    <message>
        <source>File</source>
        <translation>ファイル</translation>
    </message>
</context>
<context>
    <name>tarvin::Help</name>
    <message>
        <source>Version %1</source>
        <translation>バージョン %1</translation>
    </message>
</context>
<context>
    <name>tarvin::HomeScreen</name>
    <message>
        <source>Find duplicate files</source>
        <translation>重複ファイルを探す</translation>
    </message>
    <message>
        <source>Choose where to look. Identical files are grouped into sets, so you can review them and move the copies to the Trash.</source>
        <translation>探す場所を選んでください。同じファイルはグループにまとめられるので、確認してコピーをゴミ箱に移動できます。</translation>
    </message>
    <message>
        <source>Scan Drives</source>
        <translation>ドライブをスキャン</translation>
    </message>
    <message>
        <source>Scan Folders</source>
        <translation>フォルダーをスキャン</translation>
    </message>
</context>
<context>
    <name>tarvin::HomeTexts</name>
    <message>
        <source>Files cleaned so far: %1 (%2)</source>
        <translation>これまでに整理したファイル: %1 (%2)</translation>
    </message>
</context>
<context>
    <name>tarvin::InformationPanel</name>
    <message>
        <source>Review</source>
        <translation>確認する</translation>
    </message>
    <message>
        <source>Show…</source>
        <translation>表示…</translation>
    </message>
    <message>
        <source>Show the files that were left where they are</source>
        <translation>そのまま残したファイルを表示</translation>
    </message>
    <message>
        <source>Show what was not read…</source>
        <translation>読み取れなかった項目を表示…</translation>
    </message>
</context>
<context>
    <name>tarvin::KeptFiles</name>
    <message>
        <source>Not there any more</source>
        <translation>もう存在しません</translation>
    </message>
    <message>
        <source>Changed since the scan</source>
        <translation>スキャン後に変更されました</translation>
    </message>
    <message>
        <source>No other copy is left</source>
        <translation>ほかのコピーが残っていません</translation>
    </message>
    <message>
        <source>Stopped before its turn</source>
        <translation>順番が来る前に停止しました</translation>
    </message>
    <message>
        <source>The Trash of this volume is full</source>
        <translation>このボリュームのゴミ箱がいっぱいです</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>許可がありません</translation>
    </message>
    <message>
        <source>Its move was not written down before</source>
        <translation>移動が事前に記録されませんでした</translation>
    </message>
    <message>
        <source>In the Trash, not moved back: %1</source>
        <translation>ゴミ箱にあり、戻せません: %1</translation>
    </message>
    <message>
        <source>The disk is full</source>
        <translation>ディスクがいっぱいです</translation>
    </message>
    <message>
        <source>Its copy on another volume may be the same file</source>
        <translation>別のボリュームのコピーは同じファイルかもしれません</translation>
    </message>
</context>
<context>
    <name>tarvin::KeptList</name>
    <message>
        <source>Files to check</source>
        <translation>確認が必要なファイル</translation>
    </message>
    <message>
        <source>Show the files to check</source>
        <translation>確認が必要なファイルを表示</translation>
    </message>
    <message>
        <source>Could Not Be Moved Back</source>
        <translation>元に戻せませんでした</translation>
    </message>
    <message>
        <source>These files are in the Trash. No other copy of them may be left outside it.</source>
        <translation>これらのファイルはゴミ箱にあります。ほかの場所にコピーがない可能性があります。</translation>
    </message>
    <message>
        <source>Files to Check</source>
        <translation>確認が必要なファイル</translation>
    </message>
    <message>
        <source>Files in the Trash may be last copies. The others were not moved and are still marked.</source>
        <translation>ゴミ箱のファイルは最後のコピーかもしれません。ほかは移動されず、マークされたままです。</translation>
    </message>
</context>
<context>
    <name>tarvin::ListPanel</name>
    <message>
        <source>These files were not moved to the Trash. They are still in the results and still marked.</source>
        <translation>これらのファイルはゴミ箱に移動されませんでした。結果にマークされたまま残っています。</translation>
    </message>
    <message>
        <source>Copy List</source>
        <translation>リストをコピー</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Left Where They Are</source>
        <translation>そのまま残したファイル</translation>
    </message>
    <message>
        <source>Files left where they are</source>
        <translation>そのまま残したファイル</translation>
    </message>
    <message>
        <source>Could Not Be Read</source>
        <translation>読み取れませんでした</translation>
    </message>
    <message>
        <source>These folders and files were left out of the scan. Copies in them were not found.</source>
        <translation>これらのフォルダーとファイルはスキャンされず、中のコピーは見つかっていません。</translation>
    </message>
    <message>
        <source>Folders and files that could not be read</source>
        <translation>読み取れなかったフォルダーとファイル</translation>
    </message>
</context>
<context>
    <name>tarvin::LocationScreen</name>
    <message>
        <source>Mark All</source>
        <translation>すべてマーク</translation>
    </message>
    <message>
        <source>Unmark All</source>
        <translation>すべて解除</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>リストから削除</translation>
    </message>
    <message>
        <source>Add Photos</source>
        <translation>写真を追加</translation>
    </message>
    <message>
        <source>Add Folders</source>
        <translation>フォルダーを追加</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>スキャン</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>マーク</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>次へ</translation>
    </message>
    <message>
        <source>Check the locations to scan. You can also drop folders here.</source>
        <translation>スキャンする場所にチェックを付けてください。フォルダーをここにドロップすることもできます。</translation>
    </message>
    <message>
        <source>Locations</source>
        <translation>場所</translation>
    </message>
    <message>
        <source>No locations yet. Add folders, or drop them here.</source>
        <translation>場所がまだありません。フォルダーを追加するか、ここにドロップしてください。</translation>
    </message>
    <message>
        <source>Choose Locations</source>
        <translation>場所の選択</translation>
    </message>
</context>
<context>
    <name>tarvin::LocationTexts</name>
    <message>
        <source>File already added.</source>
        <translation>ファイルはすでに追加されています。</translation>
    </message>
    <message>
        <source>Unsupported file.</source>
        <translation>対応していないファイルです。</translation>
    </message>
    <message>
        <source>Image already added.</source>
        <translation>画像はすでに追加されています。</translation>
    </message>
    <message>
        <source>Folder already added.</source>
        <translation>フォルダーはすでに追加されています。</translation>
    </message>
    <message>
        <source>Select Folders (Double click to go deeper)</source>
        <translation>フォルダーを選択 (ダブルクリックで開く)</translation>
    </message>
    <message>
        <source>Select Drive</source>
        <translation>ドライブを選択</translation>
    </message>
    <message>
        <source>Scan</source>
        <comment>header of a column of check boxes</comment>
        <translation>スキャン</translation>
    </message>
    <message>
        <source>Select the check box and click &apos;Scan&apos; button to proceed.</source>
        <translation>チェックボックスを選択し、［スキャン］をクリックしてください。</translation>
    </message>
    <message>
        <source>No Folders.</source>
        <translation>フォルダーがありません。</translation>
    </message>
    <message>
        <source>Scan this location: %1</source>
        <translation>この場所をスキャン: %1</translation>
    </message>
    <message>
        <source>Unmark</source>
        <translation>マークを解除</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>マーク</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>スキャン</translation>
    </message>
</context>
<context>
    <name>tarvin::MainWindow</name>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
    <message>
        <source>User Guide</source>
        <translation>ユーザーガイド</translation>
    </message>
    <message>
        <source>Contact Support</source>
        <translation>サポートに問い合わせる</translation>
    </message>
    <message>
        <source>Check for Updates...</source>
        <translation>アップデートを確認…</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>%1 について</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>No</source>
        <translation>いいえ</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>はい</translation>
    </message>
    <message>
        <source>Are you sure, you want to stop this process?</source>
        <translation>この処理を停止してもよろしいですか？</translation>
    </message>
    <message>
        <source>All the files of same set cannot be selected</source>
        <translation>同じグループのすべてのファイルは選択できません</translation>
    </message>
    <message>
        <source>Export Results…</source>
        <translation>結果を書き出す…</translation>
    </message>
    <message>
        <source>Put Back Last Clean-up…</source>
        <translation>前回の整理を元に戻す…</translation>
    </message>
    <message>
        <source>Skip Hidden Files and Folders</source>
        <translation>隠しファイルとフォルダーをスキップ</translation>
    </message>
    <message>
        <source>Remember Scans</source>
        <translation>スキャンを記憶</translation>
    </message>
    <message>
        <source>Scan in the Background</source>
        <translation>バックグラウンドでスキャン</translation>
    </message>
    <message>
        <source>More</source>
        <translation>その他</translation>
    </message>
    <message>
        <source>Mark by Rule…</source>
        <translation>ルールでマーク…</translation>
    </message>
    <message>
        <source>Manage Exceptions…</source>
        <translation>除外を管理…</translation>
    </message>
</context>
<context>
    <name>tarvin::NotReadFiles</name>
    <message>
        <source>Trash folders are never scanned</source>
        <translation>ゴミ箱はスキャンされません</translation>
    </message>
    <message>
        <source>1 folder could not be read.</source>
        <translation>1 個のフォルダーを読み取れませんでした。</translation>
    </message>
    <message>
        <source>%1 folders could not be read.</source>
        <translation>%1 個のフォルダーを読み取れませんでした。</translation>
    </message>
    <message>
        <source>1 file could not be read.</source>
        <translation>1 個のファイルを読み取れませんでした。</translation>
    </message>
    <message>
        <source>%1 files could not be read.</source>
        <translation>%1 個のファイルを読み取れませんでした。</translation>
    </message>
    <message>
        <source>1 folder and 1 file could not be read.</source>
        <translation>1 個のフォルダーと 1 個のファイルを読み取れませんでした。</translation>
    </message>
    <message>
        <source>1 folder and %1 files could not be read.</source>
        <translation>1 個のフォルダーと %1 個のファイルを読み取れませんでした。</translation>
    </message>
    <message>
        <source>%1 folders and 1 file could not be read.</source>
        <translation>%1 個のフォルダーと 1 個のファイルを読み取れませんでした。</translation>
    </message>
    <message>
        <source>%1 folders and %2 files could not be read.</source>
        <translation>%1 個のフォルダーと %2 個のファイルを読み取れませんでした。</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>許可がありません</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>入出力エラー</translation>
    </message>
    <message>
        <source>Not there any more</source>
        <translation>もう存在しません</translation>
    </message>
    <message>
        <source>Stopped answering</source>
        <translation>応答がなくなりました</translation>
    </message>
    <message>
        <source>Changed while it was read</source>
        <translation>読み取り中に変更されました</translation>
    </message>
</context>
<context>
    <name>tarvin::OwnReasons</name>
    <message>
        <source>No longer in the Trash</source>
        <translation>もうゴミ箱にありません</translation>
    </message>
    <message>
        <source>Something else has its name now</source>
        <translation>別のものが同じ名前になっています</translation>
    </message>
    <message>
        <source>Its Trash is on another volume</source>
        <translation>ゴミ箱が別のボリュームにあります</translation>
    </message>
    <message>
        <source>This volume has no Trash</source>
        <translation>このボリュームにはゴミ箱がありません</translation>
    </message>
    <message>
        <source>A folder of the Trash is a link</source>
        <translation>ゴミ箱のフォルダーがリンクです</translation>
    </message>
    <message>
        <source>A part of the Trash is not a folder</source>
        <translation>ゴミ箱の一部がフォルダーではありません</translation>
    </message>
    <message>
        <source>The Trash belongs to another user</source>
        <translation>ゴミ箱は別のユーザーのものです</translation>
    </message>
    <message>
        <source>Other users can change the Trash</source>
        <translation>ほかのユーザーがゴミ箱を変更できます</translation>
    </message>
    <message>
        <source>There is no free name in the Trash</source>
        <translation>ゴミ箱に空いている名前がありません</translation>
    </message>
    <message>
        <source>there is no home folder to keep the journal in</source>
        <translation>記録を保存するホームフォルダーがありません</translation>
    </message>
    <message>
        <source>in use by another process</source>
        <translation>別のプロセスが使用中です</translation>
    </message>
    <message>
        <source>a database of another program</source>
        <translation>別のプログラムのデータベースです</translation>
    </message>
    <message>
        <source>database or disk is full</source>
        <translation>データベースまたはディスクがいっぱいです</translation>
    </message>
    <message>
        <source>written by a newer version of the program</source>
        <translation>新しいバージョンのプログラムが書き込んだものです</translation>
    </message>
    <message>
        <source>is a link</source>
        <translation>リンクです</translation>
    </message>
    <message>
        <source>the file is damaged</source>
        <translation>ファイルが壊れています</translation>
    </message>
    <message>
        <source>the file was moved or replaced</source>
        <translation>ファイルが移動されたか置き換えられました</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>通常のファイルではありません</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>ファイルが大きすぎます</translation>
    </message>
    <message>
        <source>not a property list</source>
        <translation>プロパティリストではありません</translation>
    </message>
    <message>
        <source>not a property list of totals</source>
        <translation>合計のプロパティリストではありません</translation>
    </message>
    <message>
        <source>a link to a missing file</source>
        <translation>存在しないファイルへのリンクです</translation>
    </message>
</context>
<context>
    <name>tarvin::ProgressScreen</name>
    <message>
        <source>Searching for duplicate files</source>
        <translation>重複ファイルを検索中</translation>
    </message>
    <message>
        <source>Searching for duplicate files...</source>
        <translation>重複ファイルを検索しています…</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Scan progress</source>
        <translation>スキャンの進行状況</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackList</name>
    <message>
        <source>No longer in the Trash</source>
        <translation>もうゴミ箱にありません</translation>
    </message>
    <message>
        <source>Changed in the Trash</source>
        <translation>ゴミ箱の中で変更されました</translation>
    </message>
    <message>
        <source>Drive not attached</source>
        <translation>ドライブが接続されていません</translation>
    </message>
    <message>
        <source>Stopped before its turn</source>
        <translation>順番が来る前に停止しました</translation>
    </message>
    <message>
        <source>The disk is full</source>
        <translation>ディスクがいっぱいです</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>許可がありません</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>準備完了</translation>
    </message>
    <message>
        <source>Something else is there now: will be named &quot;%1&quot;</source>
        <translation>元の場所に別のものがあります: 名前は「%1」になります</translation>
    </message>
    <message>
        <source>The folder is gone: will be made again</source>
        <translation>フォルダーがありません: 作り直します</translation>
    </message>
    <message>
        <source>%1, to %2, %3</source>
        <comment>name of a file, its folder, what becomes of it</comment>
        <translation>%1、%2 へ、%3</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>ほか %1 件</translation>
    </message>
    <message>
        <source>File and folder it goes back to</source>
        <translation>ファイルと戻す先のフォルダー</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>状態</translation>
    </message>
    <message>
        <source>Its folder is a link now</source>
        <translation>フォルダーがリンクになっています</translation>
    </message>
    <message>
        <source>Something else is where its folder was</source>
        <translation>フォルダーの場所に別のものがあります</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackPanel</name>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Put Back</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Put Back Last Clean-up</source>
        <translation>前回の整理を元に戻す</translation>
    </message>
    <message>
        <source>Files of the last clean-up</source>
        <translation>前回整理したファイル</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackProgress</name>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Putting Back</source>
        <translation>元に戻しています</translation>
    </message>
    <message>
        <source>Putting files back, please wait...</source>
        <translation>ファイルを元に戻しています。お待ちください…</translation>
    </message>
    <message>
        <source>Put back progress</source>
        <translation>元に戻す処理の進行状況</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackReport</name>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Put Back Last Clean-up</source>
        <translation>前回の整理を元に戻す</translation>
    </message>
    <message>
        <source>Files that could not be put back</source>
        <translation>元に戻せなかったファイル</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackTexts</name>
    <message>
        <source>Put Back Last Clean-up</source>
        <translation>前回の整理を元に戻す</translation>
    </message>
    <message>
        <source>1 file (%1)</source>
        <translation>1 個のファイル (%1)</translation>
    </message>
    <message>
        <source>%1 files (%2)</source>
        <translation>%1 個のファイル (%2)</translation>
    </message>
    <message>
        <source>Checking…</source>
        <translation>確認しています…</translation>
    </message>
    <message>
        <source>No files can be put back.</source>
        <translation>元に戻せるファイルはありません。</translation>
    </message>
    <message>
        <source>1 file will be put back.</source>
        <translation>1 個のファイルを元に戻します。</translation>
    </message>
    <message>
        <source>%1 files will be put back.</source>
        <translation>%1 個のファイルを元に戻します。</translation>
    </message>
    <message>
        <source>1 file cannot be put back.</source>
        <translation>1 個のファイルは元に戻せません。</translation>
    </message>
    <message>
        <source>%1 files cannot be put back.</source>
        <translation>%1 個のファイルは元に戻せません。</translation>
    </message>
    <message>
        <source>%1 of %2 files. Nothing that is there now is replaced.</source>
        <translation>%1 / %2 ファイル。今あるものが置き換えられることはありません。</translation>
    </message>
    <message>
        <source>Files Put Back: %1</source>
        <translation>元に戻したファイル: %1</translation>
    </message>
    <message>
        <source>Size: %1</source>
        <translation>サイズ: %1</translation>
    </message>
    <message>
        <source>1 file could not be put back:</source>
        <translation>1 個のファイルを元に戻せませんでした:</translation>
    </message>
    <message>
        <source>%1 files could not be put back:</source>
        <translation>%1 個のファイルを元に戻せませんでした:</translation>
    </message>
    <message>
        <source>Scan again to see these files in the results.</source>
        <translation>もう一度スキャンすると、これらのファイルが結果に表示されます。</translation>
    </message>
    <message>
        <source>There is nothing to put back.</source>
        <translation>元に戻すものがありません。</translation>
    </message>
    <message>
        <source>Nothing has been cleaned up yet.</source>
        <translation>まだ何も整理していません。</translation>
    </message>
    <message>
        <source>The last clean-up has been put back already.</source>
        <translation>前回の整理はすでに元に戻されています。</translation>
    </message>
    <message>
        <source>Its files are no longer in the Trash.</source>
        <translation>ファイルはもうゴミ箱にありません。</translation>
    </message>
    <message>
        <source>The last clean-up could not be put back.</source>
        <translation>前回の整理を元に戻せませんでした。</translation>
    </message>
    <message>
        <source>Not all was done or written down: %1</source>
        <translation>一部が実行または記録されませんでした: %1</translation>
    </message>
</context>
<context>
    <name>tarvin::RememberedScans</name>
    <message>
        <source>The remembered scans could not be removed.</source>
        <translation>記憶したスキャンを削除できませんでした。</translation>
    </message>
    <message>
        <source>The remembered scans were damaged. This scan has read all files.</source>
        <translation>記憶したスキャンが破損していました。このスキャンではすべてのファイルを読み取りました。</translation>
    </message>
    <message>
        <source>The remembered scans could not be used: %1</source>
        <translation>記憶したスキャンを使用できませんでした: %1</translation>
    </message>
    <message>
        <source>This scan could not be remembered: %1</source>
        <translation>このスキャンを記憶できませんでした: %1</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultScreen</name>
    <message>
        <source>Duplicate Files</source>
        <translation>重複ファイル</translation>
    </message>
    <message>
        <source>All</source>
        <translation>すべて</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>動画</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>音楽</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>文書</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>その他</translation>
    </message>
    <message>
        <source>Mark All</source>
        <translation>すべてマーク</translation>
    </message>
    <message>
        <source>Unmark All</source>
        <translation>すべて解除</translation>
    </message>
    <message>
        <source>Add to Exceptions</source>
        <translation>除外に追加</translation>
    </message>
    <message>
        <source>Remove Exceptions</source>
        <translation>除外をすべて解除</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>ゴミ箱に移動</translation>
    </message>
    <message>
        <source>Delete Permanently</source>
        <translation>完全に削除</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>並べ替え</translation>
    </message>
    <message>
        <source>File order</source>
        <translation>ファイルの順序</translation>
    </message>
    <message>
        <source>Sort direction</source>
        <translation>並べ替えの方向</translation>
    </message>
    <message>
        <source>Files of the set</source>
        <translation>グループのファイル</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>プレビュー</translation>
    </message>
    <message>
        <source>File properties</source>
        <translation>ファイルのプロパティ</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>サイズ</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Created Date</source>
        <translation>作成日時</translation>
    </message>
    <message>
        <source>Modified Date</source>
        <translation>更新日時</translation>
    </message>
    <message>
        <source>Dimension</source>
        <translation>画像サイズ</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>昇順</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>降順</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>マーク</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>フォルダーに表示</translation>
    </message>
    <message>
        <source>Move Others to Trash</source>
        <translation>ほかをゴミ箱に移動</translation>
    </message>
    <message>
        <source>Mark All in Set</source>
        <translation>グループをすべてマーク</translation>
    </message>
    <message>
        <source>Unmark All in Set</source>
        <translation>グループのマークをすべて解除</translation>
    </message>
    <message>
        <source>Get Info</source>
        <translation>情報を表示</translation>
    </message>
    <message>
        <source>Show…</source>
        <translation>表示…</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTable</name>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>場所</translation>
    </message>
    <message>
        <source>Set</source>
        <comment>header of a column with the numbers of sets</comment>
        <translation>グループ</translation>
    </message>
    <message>
        <source>Mark</source>
        <comment>header of a column of check boxes</comment>
        <translation>マーク</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTexts</name>
    <message>
        <source>Mark %1</source>
        <translation>%1 をマーク</translation>
    </message>
    <message>
        <source>Partly marked</source>
        <translation>一部をマーク</translation>
    </message>
    <message>
        <source>Marked Duplicate Files: %1</source>
        <translation>マークしたファイル: %1</translation>
    </message>
    <message>
        <source>Marked File Size: %1</source>
        <translation>マークしたサイズ: %1</translation>
    </message>
    <message>
        <source>All the files of same set cannot be selected</source>
        <translation>同じグループのすべてのファイルは選択できません</translation>
    </message>
    <message>
        <source>Path: %1</source>
        <translation>パス: %1</translation>
    </message>
    <message>
        <source>Double Click On FIle To Open</source>
        <translation>ダブルクリックするとファイルを開きます</translation>
    </message>
    <message>
        <source>Sort by size</source>
        <translation>サイズ順</translation>
    </message>
    <message>
        <source>Sort by name</source>
        <translation>名前順</translation>
    </message>
    <message>
        <source>Sort by created date</source>
        <translation>作成日時順</translation>
    </message>
    <message>
        <source>Sort by modified date</source>
        <translation>更新日時順</translation>
    </message>
    <message>
        <source>Sort by dimension</source>
        <translation>画像サイズ順</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>昇順</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>降順</translation>
    </message>
    <message>
        <source>Duplicates Found</source>
        <translation>重複が見つかりました</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>情報</translation>
    </message>
    <message>
        <source>Review</source>
        <translation>確認する</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Media: %1</source>
        <translation>メディア: %1</translation>
    </message>
    <message>
        <source>Documents: %1</source>
        <translation>文書: %1</translation>
    </message>
    <message>
        <source>Others: %1</source>
        <translation>その他: %1</translation>
    </message>
    <message>
        <source>Image Duplicates: %1</source>
        <translation>重複する画像: %1</translation>
    </message>
    <message>
        <source>Video Duplicates: %1</source>
        <translation>重複する動画: %1</translation>
    </message>
    <message>
        <source>Audio Duplicates: %1</source>
        <translation>重複する音楽: %1</translation>
    </message>
    <message>
        <source>Documents Duplicates: %1</source>
        <translation>重複する文書: %1</translation>
    </message>
    <message>
        <source>Other Duplicates: %1</source>
        <translation>その他の重複: %1</translation>
    </message>
    <message>
        <source>Memory Occupied: %1</source>
        <translation>使用容量: %1</translation>
    </message>
    <message>
        <source>No Image Duplicates Found</source>
        <translation>重複する画像はありません</translation>
    </message>
    <message>
        <source>No Video Duplicates Found</source>
        <translation>重複する動画はありません</translation>
    </message>
    <message>
        <source>No Audio Duplicates Found</source>
        <translation>重複する音楽はありません</translation>
    </message>
    <message>
        <source>No Documents Duplicates Found</source>
        <translation>重複する文書はありません</translation>
    </message>
    <message>
        <source>No Other Duplicates Found</source>
        <translation>その他の重複はありません</translation>
    </message>
    <message>
        <source>Please select any file to delete.</source>
        <translation>削除するファイルを選択してください。</translation>
    </message>
    <message>
        <source>Deleting files, please wait...</source>
        <translation>ファイルを削除しています。お待ちください…</translation>
    </message>
    <message>
        <source>Are you sure, you want to stop this process?</source>
        <translation>この処理を停止してもよろしいですか？</translation>
    </message>
    <message>
        <source>Duplicates Cleaned: %1</source>
        <translation>整理した重複: %1</translation>
    </message>
    <message>
        <source>Space Regained: %1 </source>
        <translation>空いた容量: %1 </translation>
    </message>
    <message>
        <source>The selected files will be excluded from all future scans. Press &quot;OK&quot; to exclude.</source>
        <translation>選択したファイルは今後すべてのスキャンから除外されます。除外するには「OK」を押してください。</translation>
    </message>
    <message>
        <source>The selected similar photos will be excluded from all future scans. Press &quot;Ok&quot; to exclude.</source>
        <translation>選択した似ている写真は今後すべてのスキャンから除外されます。除外するには「OK」を押してください。</translation>
    </message>
    <message>
        <source>
Successfully added %1 files to exceptions.</source>
        <translation>
%1 個のファイルを除外に追加しました。</translation>
    </message>
    <message>
        <source>Are you sure, you want to remove all exceptions?</source>
        <translation>除外をすべて解除してもよろしいですか？</translation>
    </message>
    <message>
        <source>
All exceptions has been removed.</source>
        <translation>
除外をすべて解除しました。</translation>
    </message>
    <message>
        <source>YES</source>
        <translation>はい</translation>
    </message>
    <message>
        <source>NO</source>
        <translation>いいえ</translation>
    </message>
    <message>
        <source>The clean-up could not begin: its moves cannot be written down.</source>
        <translation>整理を開始できませんでした: 移動を記録できません。</translation>
    </message>
    <message>
        <source>The file was set aside; the next clean-up begins a new one.</source>
        <translation>ファイルを別の名前で保存しました。次回の整理では新しいファイルを作成します。</translation>
    </message>
    <message>
        <source>1 file was left where it is.</source>
        <translation>1 個のファイルを残しました。</translation>
    </message>
    <message>
        <source>%1 files were left where they are.</source>
        <translation>%1 個のファイルを残しました。</translation>
    </message>
    <message>
        <source>1 file in the Trash may be the last copy.</source>
        <translation>ゴミ箱に最後のコピーかもしれないもの: 1</translation>
    </message>
    <message>
        <source>%1 files in the Trash may be last copies.</source>
        <translation>ゴミ箱に最後のコピーかもしれないもの: %1</translation>
    </message>
    <message>
        <source>Left: %1. Maybe last copies: %2.</source>
        <translation>残した: %1。最後のコピーの可能性: %2。</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; will be excluded from all future scans. Press &quot;OK&quot; to exclude.</source>
        <translation>ファイル「%1」は今後すべてのスキャンから除外されます。除外するには「OK」を押してください。</translation>
    </message>
    <message>
        <source>The file is not there any more.</source>
        <translation>ファイルはもう存在しません。</translation>
    </message>
    <message>
        <source>1 file, %1</source>
        <translation>1 個のファイル、%1</translation>
    </message>
    <message>
        <source>%1 files, %2 each</source>
        <translation>%1 個のファイル、各 %2</translation>
    </message>
    <message>
        <source>%1 can be regained</source>
        <translation>%1 を空けられます</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTreeView</name>
    <message>
        <source>Extensions and sets</source>
        <translation>拡張子とグループ</translation>
    </message>
</context>
<context>
    <name>tarvin::RulePanel</name>
    <message>
        <source>The first found</source>
        <translation>最初に見つかったもの</translation>
    </message>
    <message>
        <source>The newest</source>
        <translation>最も新しいもの</translation>
    </message>
    <message>
        <source>The oldest</source>
        <translation>最も古いもの</translation>
    </message>
    <message>
        <source>The shortest path</source>
        <translation>最も短いパス</translation>
    </message>
    <message>
        <source>The longest path</source>
        <translation>最も長いパス</translation>
    </message>
    <message>
        <source>The copy in a preferred folder</source>
        <translation>優先フォルダーにあるコピー</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>追加…</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>マーク</translation>
    </message>
    <message>
        <source>Mark by Rule</source>
        <translation>ルールでマーク</translation>
    </message>
    <message>
        <source>Keep in each set:</source>
        <translation>各グループで残すもの:</translation>
    </message>
    <message>
        <source>Never mark files in:</source>
        <translation>マークしないフォルダー:</translation>
    </message>
    <message>
        <source>Add the folders whose copies stay.</source>
        <translation>残すフォルダーを追加してください。</translation>
    </message>
    <message>
        <source>No folders</source>
        <translation>フォルダーなし</translation>
    </message>
    <message>
        <source>Keep in each set</source>
        <translation>各グループで残すもの</translation>
    </message>
    <message>
        <source>Preferred folders</source>
        <translation>優先フォルダー</translation>
    </message>
    <message>
        <source>Never mark files in</source>
        <translation>マークしないフォルダー</translation>
    </message>
    <message>
        <source>Add preferred folder</source>
        <translation>優先フォルダーを追加</translation>
    </message>
    <message>
        <source>Remove preferred folder</source>
        <translation>優先フォルダーを削除</translation>
    </message>
    <message>
        <source>Add protected folder</source>
        <translation>保護フォルダーを追加</translation>
    </message>
    <message>
        <source>Remove protected folder</source>
        <translation>保護フォルダーを削除</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>上へ移動</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>下へ移動</translation>
    </message>
</context>
<context>
    <name>tarvin::RuleTexts</name>
    <message>
        <source>No files will be marked.</source>
        <translation>マークするファイルはありません。</translation>
    </message>
    <message>
        <source>1 file (%1) will be marked in 1 set.</source>
        <translation>1 個のグループで 1 個のファイル (%1) をマークします。</translation>
    </message>
    <message>
        <source>%1 files (%2) will be marked in 1 set.</source>
        <translation>1 個のグループで %1 個のファイル (%2) をマークします。</translation>
    </message>
    <message>
        <source>%1 files (%2) will be marked in %3 sets.</source>
        <translation>%3 個のグループで %1 個のファイル (%2) をマークします。</translation>
    </message>
    <message>
        <source>1 set has no copy that may be marked.</source>
        <translation>マークできるコピーのないグループ: 1</translation>
    </message>
    <message>
        <source>%1 sets have no copy that may be marked.</source>
        <translation>マークできるコピーのないグループ: %1</translation>
    </message>
    <message>
        <source>Earlier marks are replaced.</source>
        <translation>以前のマークは置き換えられます。</translation>
    </message>
</context>
<context>
    <name>tarvin::ScanScreenTexts</name>
    <message>
        <source>Collecting Files...</source>
        <translation>ファイルを収集しています…</translation>
    </message>
    <message>
        <source>Collecting Files: %1</source>
        <translation>ファイルを収集中: %1</translation>
    </message>
    <message>
        <source>Processing File: %1</source>
        <translation>ファイルを処理中: %1</translation>
    </message>
    <message>
        <source>Waiting for: %1</source>
        <translation>待機中: %1</translation>
    </message>
    <message>
        <source>Elapsed Time: %1</source>
        <translation>経過時間: %1</translation>
    </message>
    <message>
        <source>Searching for duplicate files...</source>
        <translation>重複ファイルを検索しています…</translation>
    </message>
    <message>
        <source>Searching for duplicate files</source>
        <translation>重複ファイルを検索中</translation>
    </message>
    <message>
        <source>No duplicates File found</source>
        <translation>重複ファイルは見つかりませんでした</translation>
    </message>
    <message>
        <source>There was not enough memory to finish the scan. The result is incomplete.</source>
        <translation>メモリが足りず、スキャンを完了できませんでした。結果は不完全です。</translation>
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
        <source>%1 of %2 compared</source>
        <translation>%2 中 %1 を比較済み</translation>
    </message>
    <message>
        <source>less than a minute left</source>
        <translation>残り 1 分未満</translation>
    </message>
    <message>
        <source>about %1 hours left</source>
        <translation>残り約 %1 時間</translation>
    </message>
    <message>
        <source>about 1 minute left</source>
        <translation>残り約 1 分</translation>
    </message>
    <message>
        <source>about %1 minutes left</source>
        <translation>残り約 %1 分</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>一時停止中</translation>
    </message>
    <message>
        <source>Stopping…</source>
        <translation>停止しています…</translation>
    </message>
    <message>
        <source>Waiting for the file in hand.</source>
        <translation>処理中のファイルを待っています。</translation>
    </message>
</context>
<context>
    <name>tarvin::Screen</name>
    <message>
        <source>Home</source>
        <translation>ホーム</translation>
    </message>
</context>
<context>
    <name>tarvin::SearchField</name>
    <message>
        <source>Clear search</source>
        <translation>検索をクリア</translation>
    </message>
</context>
<context>
    <name>tarvin::ShownNumbers</name>
    <message>
        <source>en</source>
        <comment>the code of the language of these texts</comment>
        <translation>ja</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>date, time</comment>
        <translation>%1 %2</translation>
    </message>
</context>
<context>
    <name>tarvin::UpdateCheck</name>
    <message>
        <source>Your application is up to date</source>
        <translation>お使いのアプリは最新です</translation>
    </message>
    <message>
        <source>No update required.</source>
        <translation>アップデートは必要ありません。</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>New update available (Tarvin Duplicate File Remover %1)</source>
        <translation>新しいバージョンがあります (Tarvin Duplicate File Remover %1)</translation>
    </message>
    <message>
        <source>Would you like to update this version?</source>
        <translation>このバージョンをアップデートしますか？</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>アップデート</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>あとで通知</translation>
    </message>
</context>
<context>
    <name>tarvin::ViewBackground</name>
    <message>
        <source>Tarvin Duplicate File Remover</source>
        <translation>Tarvin Duplicate File Remover</translation>
    </message>
    <message>
        <source>Photos occupy most of the space on your Device. Many of them are duplicates. Clean all similar photos to recover space.</source>
        <translation>写真はデバイスの容量の大部分を占め、その多くは重複しています。似ている写真を整理して容量を空けましょう。</translation>
    </message>
    <message>
        <source>Search Exact</source>
        <translation>完全一致を検索</translation>
    </message>
    <message>
        <source>Search photos that are similar enough</source>
        <translation>一つの同じファイルと言えるほど</translation>
    </message>
    <message>
        <source>to be one and the same file.</source>
        <translation>似ている写真を探します。</translation>
    </message>
    <message>
        <source>Search Similar</source>
        <translation>似たものを検索</translation>
    </message>
    <message>
        <source>Search photos that are similar</source>
        <translation>似ている写真を探します</translation>
    </message>
</context>
</TS>
