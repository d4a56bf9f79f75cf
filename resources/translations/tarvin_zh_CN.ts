<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>tarvin::AboutPanel</name>
    <message>
        <source>Finds files with identical content, groups them into sets and moves the copies you choose to the Trash.</source>
        <translation>查找内容相同的文件，将它们分组，并把您选择的副本移到回收站。</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>© Tarvin Software. All rights reserved.</source>
        <translation>© Tarvin Software。保留所有权利。</translation>
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
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>tarvin::AppDelegate</name>
    <message>
        <source>A operation is in progress. Please stop the current process.</source>
        <translation>正在执行操作。请先停止当前操作。</translation>
    </message>
    <message>
        <source>To scan other folders, return to the start screen first.</source>
        <translation>要扫描其他文件夹，请先返回主页。</translation>
    </message>
</context>
<context>
    <name>tarvin::CloseButton</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>tarvin::DeletionPanel</name>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Moving to the Trash</source>
        <translation>移到回收站</translation>
    </message>
    <message>
        <source>Deleting files, please wait...</source>
        <translation>正在删除文件，请稍候…</translation>
    </message>
    <message>
        <source>Deletion progress</source>
        <translation>删除进度</translation>
    </message>
    <message>
        <source>Marked files go to the Trash. You can put them back from there.</source>
        <translation>标记的文件会移到回收站，可以从那里还原。</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionListPanel</name>
    <message>
        <source>No exceptions</source>
        <translation>没有例外</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
    <message>
        <source>Remove All Missing</source>
        <translation>移除所有已不存在的</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Files that you add to the exceptions are skipped by every later scan.</source>
        <translation>添加到例外的文件会被以后的所有扫描跳过。</translation>
    </message>
    <message>
        <source>Exceptions</source>
        <translation>例外</translation>
    </message>
    <message>
        <source>Search names and folders</source>
        <translation>搜索名称和文件夹</translation>
    </message>
    <message>
        <source>Search exceptions</source>
        <translation>搜索例外</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionListTexts</name>
    <message>
        <source>1 file</source>
        <translation>1 个文件</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1 个文件</translation>
    </message>
    <message>
        <source>1 file, not there any more</source>
        <translation>1 个文件，已不存在</translation>
    </message>
    <message>
        <source>%1 files, %2 not there any more</source>
        <translation>%1 个文件，%2 个已不存在</translation>
    </message>
    <message>
        <source>%1 of 1 file</source>
        <translation>%1 / 1 个文件</translation>
    </message>
    <message>
        <source>%1 of %2 files</source>
        <translation>%1 / %2 个文件</translation>
    </message>
    <message>
        <source>No exception matches &quot;%1&quot;.</source>
        <translation>没有与“%1”匹配的例外。</translation>
    </message>
    <message>
        <source>Exceptions</source>
        <translation>例外</translation>
    </message>
    <message>
        <source>The exceptions could not be saved.</source>
        <translation>无法保存例外。</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionPanel</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Add to Exceptions</source>
        <translation>添加到例外</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionRows</name>
    <message>
        <source>Not there any more</source>
        <translation>已不存在</translation>
    </message>
    <message>
        <source>Drive not attached</source>
        <translation>驱动器未连接</translation>
    </message>
    <message>
        <source>%1, %2, not there any more</source>
        <comment>name of a file, its folder</comment>
        <translation>%1，%2，已不存在</translation>
    </message>
    <message>
        <source>%1, %2, drive not attached</source>
        <comment>name of a file, its folder</comment>
        <translation>%1，%2，驱动器未连接</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>name of a file, its folder</comment>
        <translation>%1，%2</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
</context>
<context>
    <name>tarvin::ExportTexts</name>
    <message>
        <source>Export Results</source>
        <translation>导出结果</translation>
    </message>
    <message>
        <source>Duplicate files %1</source>
        <translation>重复文件 %1</translation>
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
        <translation>文本</translation>
    </message>
    <message>
        <source>1 set exported.</source>
        <translation>已导出 1 组。</translation>
    </message>
    <message>
        <source>%1 sets exported.</source>
        <translation>已导出 %1 组。</translation>
    </message>
    <message>
        <source>The results could not be exported.</source>
        <translation>未能导出结果。</translation>
    </message>
    <message>
        <source>Exporting the results…</source>
        <translation>正在导出结果…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>tarvin::FileActions</name>
    <message>
        <source>Actions for %1</source>
        <comment>a menu; %1 is a file&apos;s name</comment>
        <translation>%1 的操作</translation>
    </message>
</context>
<context>
    <name>tarvin::FileDialogs</name>
    <message>
        <source>Add Folders</source>
        <translation>添加文件夹</translation>
    </message>
    <message>
        <source>Add Photos</source>
        <translation>添加照片</translation>
    </message>
    <message>
        <source>Photos</source>
        <translation>照片</translation>
    </message>
    <message>
        <source>Only photos of these types can be added: %1.</source>
        <translation>只能添加以下类型的照片：%1。</translation>
    </message>
    <message>
        <source>Folders not shown here can be dropped onto the list.</source>
        <translation>此处未显示的文件夹可以拖放到列表中。</translation>
    </message>
    <message>
        <source>Photos not shown here can be dropped onto the list.</source>
        <translation>此处未显示的照片可以拖放到列表中。</translation>
    </message>
    <message>
        <source>Some of the chosen items cannot be added here. Please drop them onto the list.</source>
        <translation>所选的部分项目无法在此添加。请将它们拖放到列表中。</translation>
    </message>
    <message>
        <source>%1 already exists. Do you want to replace it?</source>
        <translation>%1 已存在。要替换它吗？</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>替换</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Some of the chosen items cannot be added here.</source>
        <translation>所选的部分项目无法在此添加。</translation>
    </message>
</context>
<context>
    <name>tarvin::FileMenu</name>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Open Containing Folder</source>
        <translation>打开所在文件夹</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>复制路径</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>保留此文件</translation>
    </message>
    <message>
        <source>Mark All in This Folder</source>
        <translation>标记此文件夹中的全部</translation>
    </message>
    <message>
        <source>Add to Exceptions…</source>
        <translation>添加到例外…</translation>
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
大小&#x3000;&#x3000;：%2
图像尺寸：%3
创建日期：%4
修改日期：%5</translation>
    </message>
    <message>
        <source> %1
Size                       : %2
Created Date        : %3
Modified Date       : %4</source>
        <translation> %1
大小&#x3000;&#x3000;：%2
创建日期：%3
修改日期：%4</translation>
    </message>
</context>
<context>
    <name>tarvin::FileReasons</name>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>原因</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>以及其他 %1 个</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
</context>
<context>
    <name>tarvin::Help</name>
    <message>
        <source>Version %1</source>
        <translation>版本 %1</translation>
    </message>
</context>
<context>
    <name>tarvin::HomeScreen</name>
    <message>
        <source>Find duplicate files</source>
        <translation>查找重复文件</translation>
    </message>
    <message>
        <source>Choose where to look. Identical files are grouped into sets, so you can review them and move the copies to the Trash.</source>
        <translation>选择查找位置。相同的文件会归为一组，您可以查看它们，并将副本移到回收站。</translation>
    </message>
    <message>
        <source>Scan Drives</source>
        <translation>扫描驱动器</translation>
    </message>
    <message>
        <source>Scan Folders</source>
        <translation>扫描文件夹</translation>
    </message>
</context>
<context>
    <name>tarvin::HomeTexts</name>
    <message>
        <source>Files cleaned so far: %1 (%2)</source>
        <translation>迄今已清理的文件：%1（%2）</translation>
    </message>
</context>
<context>
    <name>tarvin::InformationPanel</name>
    <message>
        <source>Review</source>
        <translation>查看</translation>
    </message>
    <message>
        <source>Show…</source>
        <translation>显示…</translation>
    </message>
    <message>
        <source>Show the files that were left where they are</source>
        <translation>显示留在原处的文件</translation>
    </message>
    <message>
        <source>Show what was not read…</source>
        <translation>显示未读取的项目…</translation>
    </message>
</context>
<context>
    <name>tarvin::KeptFiles</name>
    <message>
        <source>Not there any more</source>
        <translation>已不存在</translation>
    </message>
    <message>
        <source>Changed since the scan</source>
        <translation>扫描后已更改</translation>
    </message>
    <message>
        <source>No other copy is left</source>
        <translation>没有其他副本了</translation>
    </message>
    <message>
        <source>Stopped before its turn</source>
        <translation>轮到它之前已停止</translation>
    </message>
    <message>
        <source>The Trash of this volume is full</source>
        <translation>此卷的回收站已满</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>权限不足</translation>
    </message>
    <message>
        <source>Its move was not written down before</source>
        <translation>移动前未作记录</translation>
    </message>
    <message>
        <source>In the Trash, not moved back: %1</source>
        <translation>在回收站中，未能移回：%1</translation>
    </message>
    <message>
        <source>The disk is full</source>
        <translation>磁盘已满</translation>
    </message>
    <message>
        <source>Its copy on another volume may be the same file</source>
        <translation>另一个卷上的副本可能是同一个文件</translation>
    </message>
</context>
<context>
    <name>tarvin::KeptList</name>
    <message>
        <source>Files to check</source>
        <translation>需要检查的文件</translation>
    </message>
    <message>
        <source>Show the files to check</source>
        <translation>显示需要检查的文件</translation>
    </message>
    <message>
        <source>Could Not Be Moved Back</source>
        <translation>未能移回</translation>
    </message>
    <message>
        <source>These files are in the Trash. No other copy of them may be left outside it.</source>
        <translation>这些文件在回收站中。回收站之外可能已没有其他副本。</translation>
    </message>
    <message>
        <source>Files to Check</source>
        <translation>需要检查的文件</translation>
    </message>
    <message>
        <source>Files in the Trash may be last copies. The others were not moved and are still marked.</source>
        <translation>回收站中的文件可能是最后的副本。其余文件未移动，仍处于标记状态。</translation>
    </message>
</context>
<context>
    <name>tarvin::ListPanel</name>
    <message>
        <source>These files were not moved to the Trash. They are still in the results and still marked.</source>
        <translation>这些文件未移到回收站，仍在结果中并保持标记。</translation>
    </message>
    <message>
        <source>Copy List</source>
        <translation>复制列表</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Left Where They Are</source>
        <translation>留在原处</translation>
    </message>
    <message>
        <source>Files left where they are</source>
        <translation>留在原处的文件</translation>
    </message>
    <message>
        <source>Could Not Be Read</source>
        <translation>无法读取</translation>
    </message>
    <message>
        <source>These folders and files were left out of the scan. Copies in them were not found.</source>
        <translation>这些文件夹和文件未被扫描，其中的副本未被找到。</translation>
    </message>
    <message>
        <source>Folders and files that could not be read</source>
        <translation>无法读取的文件夹和文件</translation>
    </message>
</context>
<context>
    <name>tarvin::LocationScreen</name>
    <message>
        <source>Mark All</source>
        <translation>全部标记</translation>
    </message>
    <message>
        <source>Unmark All</source>
        <translation>全部取消标记</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>从列表中移除</translation>
    </message>
    <message>
        <source>Add Photos</source>
        <translation>添加照片</translation>
    </message>
    <message>
        <source>Add Folders</source>
        <translation>添加文件夹</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>扫描</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>标记</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>下一步</translation>
    </message>
    <message>
        <source>Check the locations to scan. You can also drop folders here.</source>
        <translation>勾选要扫描的位置。也可以将文件夹拖放到此处。</translation>
    </message>
    <message>
        <source>Locations</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>No locations yet. Add folders, or drop them here.</source>
        <translation>还没有位置。请添加文件夹，或将其拖放到此处。</translation>
    </message>
    <message>
        <source>Choose Locations</source>
        <translation>选择位置</translation>
    </message>
</context>
<context>
    <name>tarvin::LocationTexts</name>
    <message>
        <source>File already added.</source>
        <translation>文件已添加。</translation>
    </message>
    <message>
        <source>Unsupported file.</source>
        <translation>不支持的文件。</translation>
    </message>
    <message>
        <source>Image already added.</source>
        <translation>图像已添加。</translation>
    </message>
    <message>
        <source>Folder already added.</source>
        <translation>文件夹已添加。</translation>
    </message>
    <message>
        <source>Select Folders (Double click to go deeper)</source>
        <translation>选择文件夹（双击进入）</translation>
    </message>
    <message>
        <source>Select Drive</source>
        <translation>选择驱动器</translation>
    </message>
    <message>
        <source>Scan</source>
        <comment>header of a column of check boxes</comment>
        <translation>扫描</translation>
    </message>
    <message>
        <source>Select the check box and click &apos;Scan&apos; button to proceed.</source>
        <translation>请勾选复选框，然后点击“扫描”继续。</translation>
    </message>
    <message>
        <source>No Folders.</source>
        <translation>没有文件夹。</translation>
    </message>
    <message>
        <source>Scan this location: %1</source>
        <translation>扫描此位置：%1</translation>
    </message>
    <message>
        <source>Unmark</source>
        <translation>取消标记</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>标记</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>扫描</translation>
    </message>
</context>
<context>
    <name>tarvin::MainWindow</name>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
    <message>
        <source>User Guide</source>
        <translation>用户指南</translation>
    </message>
    <message>
        <source>Contact Support</source>
        <translation>联系支持</translation>
    </message>
    <message>
        <source>Check for Updates...</source>
        <translation>检查更新…</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>关于 %1</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>No</source>
        <translation>否</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>Are you sure, you want to stop this process?</source>
        <translation>确定要停止此操作吗？</translation>
    </message>
    <message>
        <source>All the files of same set cannot be selected</source>
        <translation>不能选择同一组的所有文件</translation>
    </message>
    <message>
        <source>Export Results…</source>
        <translation>导出结果…</translation>
    </message>
    <message>
        <source>Put Back Last Clean-up…</source>
        <translation>撤销上次清理…</translation>
    </message>
    <message>
        <source>Skip Hidden Files and Folders</source>
        <translation>跳过隐藏的文件和文件夹</translation>
    </message>
    <message>
        <source>Remember Scans</source>
        <translation>记住扫描</translation>
    </message>
    <message>
        <source>Scan in the Background</source>
        <translation>在后台扫描</translation>
    </message>
    <message>
        <source>More</source>
        <translation>更多</translation>
    </message>
    <message>
        <source>Mark by Rule…</source>
        <translation>按规则标记…</translation>
    </message>
    <message>
        <source>Manage Exceptions…</source>
        <translation>管理例外…</translation>
    </message>
</context>
<context>
    <name>tarvin::NotReadFiles</name>
    <message>
        <source>Trash folders are never scanned</source>
        <translation>从不扫描回收站</translation>
    </message>
    <message>
        <source>1 folder could not be read.</source>
        <translation>1 个文件夹无法读取。</translation>
    </message>
    <message>
        <source>%1 folders could not be read.</source>
        <translation>%1 个文件夹无法读取。</translation>
    </message>
    <message>
        <source>1 file could not be read.</source>
        <translation>1 个文件无法读取。</translation>
    </message>
    <message>
        <source>%1 files could not be read.</source>
        <translation>%1 个文件无法读取。</translation>
    </message>
    <message>
        <source>1 folder and 1 file could not be read.</source>
        <translation>1 个文件夹和 1 个文件无法读取。</translation>
    </message>
    <message>
        <source>1 folder and %1 files could not be read.</source>
        <translation>1 个文件夹和 %1 个文件无法读取。</translation>
    </message>
    <message>
        <source>%1 folders and 1 file could not be read.</source>
        <translation>%1 个文件夹和 1 个文件无法读取。</translation>
    </message>
    <message>
        <source>%1 folders and %2 files could not be read.</source>
        <translation>%1 个文件夹和 %2 个文件无法读取。</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>权限不足</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>输入/输出错误</translation>
    </message>
    <message>
        <source>Not there any more</source>
        <translation>已不存在</translation>
    </message>
    <message>
        <source>Stopped answering</source>
        <translation>已停止响应</translation>
    </message>
    <message>
        <source>Changed while it was read</source>
        <translation>读取期间已更改</translation>
    </message>
</context>
<context>
    <name>tarvin::OwnReasons</name>
    <message>
        <source>No longer in the Trash</source>
        <translation>已不在回收站中</translation>
    </message>
    <message>
        <source>Something else has its name now</source>
        <translation>其名称已被其他项目占用</translation>
    </message>
    <message>
        <source>Its Trash is on another volume</source>
        <translation>其回收站在另一个卷上</translation>
    </message>
    <message>
        <source>This volume has no Trash</source>
        <translation>此卷没有回收站</translation>
    </message>
    <message>
        <source>A folder of the Trash is a link</source>
        <translation>回收站的一个文件夹是链接</translation>
    </message>
    <message>
        <source>A part of the Trash is not a folder</source>
        <translation>回收站的一部分不是文件夹</translation>
    </message>
    <message>
        <source>The Trash belongs to another user</source>
        <translation>回收站属于其他用户</translation>
    </message>
    <message>
        <source>Other users can change the Trash</source>
        <translation>其他用户可以更改回收站</translation>
    </message>
    <message>
        <source>There is no free name in the Trash</source>
        <translation>回收站中没有可用的名称</translation>
    </message>
    <message>
        <source>there is no home folder to keep the journal in</source>
        <translation>没有可存放日志的主文件夹</translation>
    </message>
    <message>
        <source>in use by another process</source>
        <translation>正被另一个进程使用</translation>
    </message>
    <message>
        <source>a database of another program</source>
        <translation>是其他程序的数据库</translation>
    </message>
    <message>
        <source>database or disk is full</source>
        <translation>数据库或磁盘已满</translation>
    </message>
    <message>
        <source>written by a newer version of the program</source>
        <translation>由较新版本的程序写入</translation>
    </message>
    <message>
        <source>is a link</source>
        <translation>是链接</translation>
    </message>
    <message>
        <source>the file is damaged</source>
        <translation>文件已损坏</translation>
    </message>
    <message>
        <source>the file was moved or replaced</source>
        <translation>文件已被移动或替换</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>不是普通文件</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>文件过大</translation>
    </message>
    <message>
        <source>not a property list</source>
        <translation>不是属性列表</translation>
    </message>
    <message>
        <source>not a property list of totals</source>
        <translation>不是包含总计的属性列表</translation>
    </message>
    <message>
        <source>a link to a missing file</source>
        <translation>指向不存在文件的链接</translation>
    </message>
</context>
<context>
    <name>tarvin::ProgressScreen</name>
    <message>
        <source>Searching for duplicate files</source>
        <translation>正在查找重复文件</translation>
    </message>
    <message>
        <source>Searching for duplicate files...</source>
        <translation>正在查找重复文件…</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Scan progress</source>
        <translation>扫描进度</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackList</name>
    <message>
        <source>No longer in the Trash</source>
        <translation>已不在回收站中</translation>
    </message>
    <message>
        <source>Changed in the Trash</source>
        <translation>在回收站中已更改</translation>
    </message>
    <message>
        <source>Drive not attached</source>
        <translation>驱动器未连接</translation>
    </message>
    <message>
        <source>Stopped before its turn</source>
        <translation>轮到它之前已停止</translation>
    </message>
    <message>
        <source>The disk is full</source>
        <translation>磁盘已满</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>权限不足</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>就绪</translation>
    </message>
    <message>
        <source>Something else is there now: will be named &quot;%1&quot;</source>
        <translation>原处已有其他项目：将命名为“%1”</translation>
    </message>
    <message>
        <source>The folder is gone: will be made again</source>
        <translation>文件夹已不存在：将重新创建</translation>
    </message>
    <message>
        <source>%1, to %2, %3</source>
        <comment>name of a file, its folder, what becomes of it</comment>
        <translation>%1，到 %2，%3</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>以及其他 %1 个</translation>
    </message>
    <message>
        <source>File and folder it goes back to</source>
        <translation>文件及其还原到的文件夹</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Its folder is a link now</source>
        <translation>其文件夹现在是链接</translation>
    </message>
    <message>
        <source>Something else is where its folder was</source>
        <translation>其文件夹处现在是其他项目</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackPanel</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Put Back</source>
        <translation>还原</translation>
    </message>
    <message>
        <source>Put Back Last Clean-up</source>
        <translation>撤销上次清理</translation>
    </message>
    <message>
        <source>Files of the last clean-up</source>
        <translation>上次清理的文件</translation>
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
        <translation>正在还原</translation>
    </message>
    <message>
        <source>Putting files back, please wait...</source>
        <translation>正在还原文件，请稍候…</translation>
    </message>
    <message>
        <source>Put back progress</source>
        <translation>还原进度</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackReport</name>
    <message>
        <source>Ok</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Put Back Last Clean-up</source>
        <translation>撤销上次清理</translation>
    </message>
    <message>
        <source>Files that could not be put back</source>
        <translation>未能还原的文件</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackTexts</name>
    <message>
        <source>Put Back Last Clean-up</source>
        <translation>撤销上次清理</translation>
    </message>
    <message>
        <source>1 file (%1)</source>
        <translation>1 个文件（%1）</translation>
    </message>
    <message>
        <source>%1 files (%2)</source>
        <translation>%1 个文件（%2）</translation>
    </message>
    <message>
        <source>Checking…</source>
        <translation>正在检查…</translation>
    </message>
    <message>
        <source>No files can be put back.</source>
        <translation>没有可还原的文件。</translation>
    </message>
    <message>
        <source>1 file will be put back.</source>
        <translation>将还原 1 个文件。</translation>
    </message>
    <message>
        <source>%1 files will be put back.</source>
        <translation>将还原 %1 个文件。</translation>
    </message>
    <message>
        <source>1 file cannot be put back.</source>
        <translation>1 个文件无法还原。</translation>
    </message>
    <message>
        <source>%1 files cannot be put back.</source>
        <translation>%1 个文件无法还原。</translation>
    </message>
    <message>
        <source>%1 of %2 files. Nothing that is there now is replaced.</source>
        <translation>%1 / %2 个文件。不会替换现有的任何内容。</translation>
    </message>
    <message>
        <source>Files Put Back: %1</source>
        <translation>已还原的文件：%1</translation>
    </message>
    <message>
        <source>Size: %1</source>
        <translation>大小：%1</translation>
    </message>
    <message>
        <source>1 file could not be put back:</source>
        <translation>1 个文件未能还原：</translation>
    </message>
    <message>
        <source>%1 files could not be put back:</source>
        <translation>%1 个文件未能还原：</translation>
    </message>
    <message>
        <source>Scan again to see these files in the results.</source>
        <translation>重新扫描即可在结果中看到这些文件。</translation>
    </message>
    <message>
        <source>There is nothing to put back.</source>
        <translation>没有可还原的内容。</translation>
    </message>
    <message>
        <source>Nothing has been cleaned up yet.</source>
        <translation>尚未进行任何清理。</translation>
    </message>
    <message>
        <source>The last clean-up has been put back already.</source>
        <translation>上次清理已经撤销。</translation>
    </message>
    <message>
        <source>Its files are no longer in the Trash.</source>
        <translation>其文件已不在回收站中。</translation>
    </message>
    <message>
        <source>The last clean-up could not be put back.</source>
        <translation>未能撤销上次清理。</translation>
    </message>
    <message>
        <source>Not all was done or written down: %1</source>
        <translation>部分操作未完成或未记录：%1</translation>
    </message>
</context>
<context>
    <name>tarvin::RememberedScans</name>
    <message>
        <source>The remembered scans could not be removed.</source>
        <translation>无法移除记住的扫描。</translation>
    </message>
    <message>
        <source>The remembered scans were damaged. This scan has read all files.</source>
        <translation>记住的扫描已损坏。本次扫描读取了所有文件。</translation>
    </message>
    <message>
        <source>The remembered scans could not be used: %1</source>
        <translation>无法使用记住的扫描：%1</translation>
    </message>
    <message>
        <source>This scan could not be remembered: %1</source>
        <translation>无法记住本次扫描：%1</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultScreen</name>
    <message>
        <source>Duplicate Files</source>
        <translation>重复文件</translation>
    </message>
    <message>
        <source>All</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>图像</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>视频</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>音频</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>文档</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>其他</translation>
    </message>
    <message>
        <source>Mark All</source>
        <translation>全部标记</translation>
    </message>
    <message>
        <source>Unmark All</source>
        <translation>全部取消标记</translation>
    </message>
    <message>
        <source>Add to Exceptions</source>
        <translation>添加到例外</translation>
    </message>
    <message>
        <source>Remove Exceptions</source>
        <translation>移除例外</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>移到回收站</translation>
    </message>
    <message>
        <source>Delete Permanently</source>
        <translation>永久删除</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>排序方式</translation>
    </message>
    <message>
        <source>File order</source>
        <translation>文件顺序</translation>
    </message>
    <message>
        <source>Sort direction</source>
        <translation>排序方向</translation>
    </message>
    <message>
        <source>Files of the set</source>
        <translation>组中的文件</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>预览</translation>
    </message>
    <message>
        <source>File properties</source>
        <translation>文件属性</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Created Date</source>
        <translation>创建日期</translation>
    </message>
    <message>
        <source>Modified Date</source>
        <translation>修改日期</translation>
    </message>
    <message>
        <source>Dimension</source>
        <translation>尺寸</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>升序</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>降序</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>标记</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message>
        <source>Move Others to Trash</source>
        <translation>将其他移到回收站</translation>
    </message>
    <message>
        <source>Mark All in Set</source>
        <translation>标记整组</translation>
    </message>
    <message>
        <source>Unmark All in Set</source>
        <translation>取消标记整组</translation>
    </message>
    <message>
        <source>Get Info</source>
        <translation>显示信息</translation>
    </message>
    <message>
        <source>Show…</source>
        <translation>显示…</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTable</name>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Set</source>
        <comment>header of a column with the numbers of sets</comment>
        <translation>组</translation>
    </message>
    <message>
        <source>Mark</source>
        <comment>header of a column of check boxes</comment>
        <translation>标记</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTexts</name>
    <message>
        <source>Mark %1</source>
        <translation>标记 %1</translation>
    </message>
    <message>
        <source>Partly marked</source>
        <translation>部分标记</translation>
    </message>
    <message>
        <source>Marked Duplicate Files: %1</source>
        <translation>已标记的文件：%1</translation>
    </message>
    <message>
        <source>Marked File Size: %1</source>
        <translation>已标记的大小：%1</translation>
    </message>
    <message>
        <source>All the files of same set cannot be selected</source>
        <translation>不能选择同一组的所有文件</translation>
    </message>
    <message>
        <source>Path: %1</source>
        <translation>路径：%1</translation>
    </message>
    <message>
        <source>Double Click On FIle To Open</source>
        <translation>双击文件即可打开</translation>
    </message>
    <message>
        <source>Sort by size</source>
        <translation>按大小排序</translation>
    </message>
    <message>
        <source>Sort by name</source>
        <translation>按名称排序</translation>
    </message>
    <message>
        <source>Sort by created date</source>
        <translation>按创建日期排序</translation>
    </message>
    <message>
        <source>Sort by modified date</source>
        <translation>按修改日期排序</translation>
    </message>
    <message>
        <source>Sort by dimension</source>
        <translation>按尺寸排序</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>升序</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>降序</translation>
    </message>
    <message>
        <source>Duplicates Found</source>
        <translation>发现重复文件</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>信息</translation>
    </message>
    <message>
        <source>Review</source>
        <translation>查看</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Media: %1</source>
        <translation>媒体：%1</translation>
    </message>
    <message>
        <source>Documents: %1</source>
        <translation>文档：%1</translation>
    </message>
    <message>
        <source>Others: %1</source>
        <translation>其他：%1</translation>
    </message>
    <message>
        <source>Image Duplicates: %1</source>
        <translation>重复图像：%1</translation>
    </message>
    <message>
        <source>Video Duplicates: %1</source>
        <translation>重复视频：%1</translation>
    </message>
    <message>
        <source>Audio Duplicates: %1</source>
        <translation>重复音频：%1</translation>
    </message>
    <message>
        <source>Documents Duplicates: %1</source>
        <translation>重复文档：%1</translation>
    </message>
    <message>
        <source>Other Duplicates: %1</source>
        <translation>其他重复文件：%1</translation>
    </message>
    <message>
        <source>Memory Occupied: %1</source>
        <translation>占用空间：%1</translation>
    </message>
    <message>
        <source>No Image Duplicates Found</source>
        <translation>未发现重复图像</translation>
    </message>
    <message>
        <source>No Video Duplicates Found</source>
        <translation>未发现重复视频</translation>
    </message>
    <message>
        <source>No Audio Duplicates Found</source>
        <translation>未发现重复音频</translation>
    </message>
    <message>
        <source>No Documents Duplicates Found</source>
        <translation>未发现重复文档</translation>
    </message>
    <message>
        <source>No Other Duplicates Found</source>
        <translation>未发现其他重复文件</translation>
    </message>
    <message>
        <source>Please select any file to delete.</source>
        <translation>请选择要删除的文件。</translation>
    </message>
    <message>
        <source>Deleting files, please wait...</source>
        <translation>正在删除文件，请稍候…</translation>
    </message>
    <message>
        <source>Are you sure, you want to stop this process?</source>
        <translation>确定要停止此操作吗？</translation>
    </message>
    <message>
        <source>Duplicates Cleaned: %1</source>
        <translation>已清理的重复文件：%1</translation>
    </message>
    <message>
        <source>Space Regained: %1 </source>
        <translation>释放的空间：%1 </translation>
    </message>
    <message>
        <source>The selected files will be excluded from all future scans. Press &quot;OK&quot; to exclude.</source>
        <translation>所选文件将从今后的所有扫描中排除。按“确定”排除。</translation>
    </message>
    <message>
        <source>The selected similar photos will be excluded from all future scans. Press &quot;Ok&quot; to exclude.</source>
        <translation>所选的相似照片将从今后的所有扫描中排除。按“确定”排除。</translation>
    </message>
    <message>
        <source>
Successfully added %1 files to exceptions.</source>
        <translation>
已将 %1 个文件添加到例外。</translation>
    </message>
    <message>
        <source>Are you sure, you want to remove all exceptions?</source>
        <translation>确定要移除所有例外吗？</translation>
    </message>
    <message>
        <source>
All exceptions has been removed.</source>
        <translation>
已移除所有例外。</translation>
    </message>
    <message>
        <source>YES</source>
        <translation>是</translation>
    </message>
    <message>
        <source>NO</source>
        <translation>否</translation>
    </message>
    <message>
        <source>The clean-up could not begin: its moves cannot be written down.</source>
        <translation>无法开始清理：无法记录其移动操作。</translation>
    </message>
    <message>
        <source>The file was set aside; the next clean-up begins a new one.</source>
        <translation>该文件已另行保存；下次清理将新建一个。</translation>
    </message>
    <message>
        <source>1 file was left where it is.</source>
        <translation>1 个文件留在原处。</translation>
    </message>
    <message>
        <source>%1 files were left where they are.</source>
        <translation>%1 个文件留在原处。</translation>
    </message>
    <message>
        <source>1 file in the Trash may be the last copy.</source>
        <translation>回收站中 1 个文件可能是最后的副本。</translation>
    </message>
    <message>
        <source>%1 files in the Trash may be last copies.</source>
        <translation>回收站中 %1 个文件可能是最后的副本。</translation>
    </message>
    <message>
        <source>Left: %1. Maybe last copies: %2.</source>
        <translation>留下：%1。可能是最后副本：%2。</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; will be excluded from all future scans. Press &quot;OK&quot; to exclude.</source>
        <translation>文件“%1”将从今后的所有扫描中排除。按“确定”排除。</translation>
    </message>
    <message>
        <source>The file is not there any more.</source>
        <translation>该文件已不存在。</translation>
    </message>
    <message>
        <source>1 file, %1</source>
        <translation>1 个文件，%1</translation>
    </message>
    <message>
        <source>%1 files, %2 each</source>
        <translation>%1 个文件，每个 %2</translation>
    </message>
    <message>
        <source>%1 can be regained</source>
        <translation>可释放 %1</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTreeView</name>
    <message>
        <source>Extensions and sets</source>
        <translation>扩展名和组</translation>
    </message>
</context>
<context>
    <name>tarvin::RulePanel</name>
    <message>
        <source>The first found</source>
        <translation>最先找到的</translation>
    </message>
    <message>
        <source>The newest</source>
        <translation>最新的</translation>
    </message>
    <message>
        <source>The oldest</source>
        <translation>最旧的</translation>
    </message>
    <message>
        <source>The shortest path</source>
        <translation>路径最短的</translation>
    </message>
    <message>
        <source>The longest path</source>
        <translation>路径最长的</translation>
    </message>
    <message>
        <source>The copy in a preferred folder</source>
        <translation>首选文件夹中的副本</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>添加…</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>标记</translation>
    </message>
    <message>
        <source>Mark by Rule</source>
        <translation>按规则标记</translation>
    </message>
    <message>
        <source>Keep in each set:</source>
        <translation>每组保留：</translation>
    </message>
    <message>
        <source>Never mark files in:</source>
        <translation>从不标记以下位置的文件：</translation>
    </message>
    <message>
        <source>Add the folders whose copies stay.</source>
        <translation>请添加要保留其副本的文件夹。</translation>
    </message>
    <message>
        <source>No folders</source>
        <translation>没有文件夹</translation>
    </message>
    <message>
        <source>Keep in each set</source>
        <translation>每组保留</translation>
    </message>
    <message>
        <source>Preferred folders</source>
        <translation>首选文件夹</translation>
    </message>
    <message>
        <source>Never mark files in</source>
        <translation>从不标记以下位置的文件</translation>
    </message>
    <message>
        <source>Add preferred folder</source>
        <translation>添加首选文件夹</translation>
    </message>
    <message>
        <source>Remove preferred folder</source>
        <translation>移除首选文件夹</translation>
    </message>
    <message>
        <source>Add protected folder</source>
        <translation>添加受保护的文件夹</translation>
    </message>
    <message>
        <source>Remove protected folder</source>
        <translation>移除受保护的文件夹</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>上移</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>下移</translation>
    </message>
</context>
<context>
    <name>tarvin::RuleTexts</name>
    <message>
        <source>No files will be marked.</source>
        <translation>不会标记任何文件。</translation>
    </message>
    <message>
        <source>1 file (%1) will be marked in 1 set.</source>
        <translation>将在 1 组中标记 1 个文件（%1）。</translation>
    </message>
    <message>
        <source>%1 files (%2) will be marked in 1 set.</source>
        <translation>将在 1 组中标记 %1 个文件（%2）。</translation>
    </message>
    <message>
        <source>%1 files (%2) will be marked in %3 sets.</source>
        <translation>将在 %3 组中标记 %1 个文件（%2）。</translation>
    </message>
    <message>
        <source>1 set has no copy that may be marked.</source>
        <translation>1 组没有可标记的副本。</translation>
    </message>
    <message>
        <source>%1 sets have no copy that may be marked.</source>
        <translation>%1 组没有可标记的副本。</translation>
    </message>
    <message>
        <source>Earlier marks are replaced.</source>
        <translation>之前的标记会被替换。</translation>
    </message>
</context>
<context>
    <name>tarvin::ScanScreenTexts</name>
    <message>
        <source>Collecting Files...</source>
        <translation>正在收集文件…</translation>
    </message>
    <message>
        <source>Collecting Files: %1</source>
        <translation>正在收集文件：%1</translation>
    </message>
    <message>
        <source>Processing File: %1</source>
        <translation>正在处理文件：%1</translation>
    </message>
    <message>
        <source>Waiting for: %1</source>
        <translation>正在等待：%1</translation>
    </message>
    <message>
        <source>Elapsed Time: %1</source>
        <translation>已用时间：%1</translation>
    </message>
    <message>
        <source>Searching for duplicate files...</source>
        <translation>正在查找重复文件…</translation>
    </message>
    <message>
        <source>Searching for duplicate files</source>
        <translation>正在查找重复文件</translation>
    </message>
    <message>
        <source>No duplicates File found</source>
        <translation>未发现重复文件</translation>
    </message>
    <message>
        <source>There was not enough memory to finish the scan. The result is incomplete.</source>
        <translation>内存不足，无法完成扫描。结果不完整。</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>继续</translation>
    </message>
    <message>
        <source>%1 of %2 compared</source>
        <translation>已比较 %1 / %2</translation>
    </message>
    <message>
        <source>less than a minute left</source>
        <translation>剩余不到 1 分钟</translation>
    </message>
    <message>
        <source>about %1 hours left</source>
        <translation>剩余约 %1 小时</translation>
    </message>
    <message>
        <source>about 1 minute left</source>
        <translation>剩余约 1 分钟</translation>
    </message>
    <message>
        <source>about %1 minutes left</source>
        <translation>剩余约 %1 分钟</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>已暂停</translation>
    </message>
    <message>
        <source>Stopping…</source>
        <translation>正在停止…</translation>
    </message>
    <message>
        <source>Waiting for the file in hand.</source>
        <translation>正在等待当前文件。</translation>
    </message>
</context>
<context>
    <name>tarvin::Screen</name>
    <message>
        <source>Home</source>
        <translation>主页</translation>
    </message>
</context>
<context>
    <name>tarvin::SearchField</name>
    <message>
        <source>Clear search</source>
        <translation>清除搜索</translation>
    </message>
</context>
<context>
    <name>tarvin::ShownNumbers</name>
    <message>
        <source>en</source>
        <comment>the code of the language of these texts</comment>
        <translation>zh_CN</translation>
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
        <translation>您的应用程序已是最新版本</translation>
    </message>
    <message>
        <source>No update required.</source>
        <translation>无需更新。</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>New update available (Tarvin Duplicate File Remover %1)</source>
        <translation>有新版本可用（Tarvin Duplicate File Remover %1）</translation>
    </message>
    <message>
        <source>Would you like to update this version?</source>
        <translation>要更新此版本吗？</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>稍后提醒我</translation>
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
        <translation>照片占用了设备的大部分空间，其中许多是重复的。清理相似照片以释放空间。</translation>
    </message>
    <message>
        <source>Search Exact</source>
        <translation>精确查找</translation>
    </message>
    <message>
        <source>Search photos that are similar enough</source>
        <translation>查找足够相似、</translation>
    </message>
    <message>
        <source>to be one and the same file.</source>
        <translation>可视为同一文件的照片。</translation>
    </message>
    <message>
        <source>Search Similar</source>
        <translation>查找相似</translation>
    </message>
    <message>
        <source>Search photos that are similar</source>
        <translation>查找相似的照片</translation>
    </message>
</context>
</TS>
