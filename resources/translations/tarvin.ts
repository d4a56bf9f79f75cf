<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" sourcelanguage="en">
<context>
    <name>tarvin::AboutPanel</name>
    <message>
        <source>Finds files with identical content, groups them into sets and moves the copies you choose to the Trash.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>© Tarvin Software. All rights reserved.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::Alerts</name>
    <message>
        <source>Tarvin Duplicate File Remover</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ok</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::AppDelegate</name>
    <message>
        <source>A operation is in progress. Please stop the current process.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>To scan other folders, return to the start screen first.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::CloseButton</name>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::DeletionPanel</name>
    <message>
        <source>Pause</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moving to the Trash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deleting files, please wait...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deletion progress</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Marked files go to the Trash. You can put them back from there.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionListPanel</name>
    <message>
        <source>No exceptions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove All Missing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files that you add to the exceptions are skipped by every later scan.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exceptions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search names and folders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search exceptions</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionListTexts</name>
    <message>
        <source>1 file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 file, not there any more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 files, %2 not there any more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of 1 file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2 files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No exception matches &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exceptions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The exceptions could not be saved.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionPanel</name>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ok</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add to Exceptions</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionRows</name>
    <message>
        <source>Not there any more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drive not attached</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2, not there any more</source>
        <comment>name of a file, its folder</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2, drive not attached</source>
        <comment>name of a file, its folder</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>name of a file, its folder</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Folder</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::ExportTexts</name>
    <message>
        <source>Export Results</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duplicate files %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CSV</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>JSON</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 set exported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 sets exported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The results could not be exported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exporting the results…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::FileActions</name>
    <message>
        <source>Actions for %1</source>
        <comment>a menu; %1 is a file&apos;s name</comment>
        <translation></translation>
    </message>
</context>
<context>
    <name>tarvin::FileDialogs</name>
    <message>
        <source>Add Folders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Photos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Photos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only photos of these types can be added: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Folders not shown here can be dropped onto the list.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Photos not shown here can be dropped onto the list.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Some of the chosen items cannot be added here. Please drop them onto the list.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 already exists. Do you want to replace it?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Some of the chosen items cannot be added here.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::FileMenu</name>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Containing Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark All in This Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add to Exceptions…</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> %1
Size                       : %2
Created Date        : %3
Modified Date       : %4</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::FileReasons</name>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Location</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reason</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::Help</name>
    <message>
        <source>Version %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::HomeScreen</name>
    <message>
        <source>Find duplicate files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose where to look. Identical files are grouped into sets, so you can review them and move the copies to the Trash.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scan Drives</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scan Folders</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::HomeTexts</name>
    <message>
        <source>Files cleaned so far: %1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::InformationPanel</name>
    <message>
        <source>Review</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the files that were left where they are</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show what was not read…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::KeptFiles</name>
    <message>
        <source>Not there any more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Changed since the scan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No other copy is left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stopped before its turn</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The Trash of this volume is full</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its move was not written down before</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>In the Trash, not moved back: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The disk is full</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its copy on another volume may be the same file</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::KeptList</name>
    <message>
        <source>Files to check</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the files to check</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could Not Be Moved Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These files are in the Trash. No other copy of them may be left outside it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files to Check</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files in the Trash may be last copies. The others were not moved and are still marked.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::ListPanel</name>
    <message>
        <source>These files were not moved to the Trash. They are still in the results and still marked.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy List</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left Where They Are</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files left where they are</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could Not Be Read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These folders and files were left out of the scan. Copies in them were not found.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Folders and files that could not be read</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::LocationScreen</name>
    <message>
        <source>Mark All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unmark All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Photos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Folders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check the locations to scan. You can also drop folders here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Locations</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No locations yet. Add folders, or drop them here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose Locations</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::LocationTexts</name>
    <message>
        <source>File already added.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unsupported file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Image already added.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Folder already added.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select Folders (Double click to go deeper)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select Drive</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scan</source>
        <comment>header of a column of check boxes</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select the check box and click &apos;Scan&apos; button to proceed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Folders.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scan this location: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unmark</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scan</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::MainWindow</name>
    <message>
        <source>Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User Guide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contact Support</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check for Updates...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ok</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure, you want to stop this process?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All the files of same set cannot be selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export Results…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Put Back Last Clean-up…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skip Hidden Files and Folders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remember Scans</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scan in the Background</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>More</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark by Rule…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Manage Exceptions…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::NotReadFiles</name>
    <message>
        <source>Trash folders are never scanned</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 folder could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 folders could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 file could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 files could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 folder and 1 file could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 folder and %1 files could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 folders and 1 file could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 folders and %2 files could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not there any more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stopped answering</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Changed while it was read</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::OwnReasons</name>
    <message>
        <source>No longer in the Trash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Something else has its name now</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its Trash is on another volume</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This volume has no Trash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A folder of the Trash is a link</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A part of the Trash is not a folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The Trash belongs to another user</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other users can change the Trash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no free name in the Trash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no home folder to keep the journal in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in use by another process</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a database of another program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>database or disk is full</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>written by a newer version of the program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>is a link</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file is damaged</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file was moved or replaced</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not a property list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not a property list of totals</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a link to a missing file</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::ProgressScreen</name>
    <message>
        <source>Searching for duplicate files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Searching for duplicate files...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pause</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scan progress</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackList</name>
    <message>
        <source>No longer in the Trash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Changed in the Trash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drive not attached</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stopped before its turn</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The disk is full</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ready</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Something else is there now: will be named &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder is gone: will be made again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, to %2, %3</source>
        <comment>name of a file, its folder, what becomes of it</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File and folder it goes back to</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Status</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its folder is a link now</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Something else is where its folder was</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackPanel</name>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Put Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Put Back Last Clean-up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files of the last clean-up</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackProgress</name>
    <message>
        <source>Stop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Putting Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Putting files back, please wait...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Put back progress</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackReport</name>
    <message>
        <source>Ok</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Put Back Last Clean-up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files that could not be put back</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackTexts</name>
    <message>
        <source>Put Back Last Clean-up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 file (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 files (%2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Checking…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No files can be put back.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 file will be put back.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 files will be put back.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 file cannot be put back.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 files cannot be put back.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2 files. Nothing that is there now is replaced.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files Put Back: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 file could not be put back:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 files could not be put back:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scan again to see these files in the results.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is nothing to put back.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing has been cleaned up yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The last clean-up has been put back already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its files are no longer in the Trash.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The last clean-up could not be put back.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not all was done or written down: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::RememberedScans</name>
    <message>
        <source>The remembered scans could not be removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The remembered scans were damaged. This scan has read all files.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The remembered scans could not be used: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This scan could not be remembered: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::ResultScreen</name>
    <message>
        <source>Duplicate Files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Video</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Audio</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Documents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unmark All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add to Exceptions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Exceptions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Permanently</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File order</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sort direction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files of the set</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preview</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File properties</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Created Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Modified Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dimension</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Descending</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Others to Trash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark All in Set</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unmark All in Set</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Get Info</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTable</name>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Location</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set</source>
        <comment>header of a column with the numbers of sets</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark</source>
        <comment>header of a column of check boxes</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTexts</name>
    <message>
        <source>Mark %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Partly marked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Marked Duplicate Files: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Marked File Size: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All the files of same set cannot be selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Path: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Double Click On FIle To Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sort by size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sort by name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sort by created date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sort by modified date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sort by dimension</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Descending</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duplicates Found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Review</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ok</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Media: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Documents: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Others: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Image Duplicates: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Video Duplicates: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Audio Duplicates: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Documents Duplicates: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other Duplicates: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Memory Occupied: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Image Duplicates Found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Video Duplicates Found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Audio Duplicates Found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Documents Duplicates Found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Other Duplicates Found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select any file to delete.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deleting files, please wait...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure, you want to stop this process?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duplicates Cleaned: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Space Regained: %1 </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The selected files will be excluded from all future scans. Press &quot;OK&quot; to exclude.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The selected similar photos will be excluded from all future scans. Press &quot;Ok&quot; to exclude.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>
Successfully added %1 files to exceptions.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure, you want to remove all exceptions?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>
All exceptions has been removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>YES</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NO</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The clean-up could not begin: its moves cannot be written down.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file was set aside; the next clean-up begins a new one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 file was left where it is.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 files were left where they are.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 file in the Trash may be the last copy.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 files in the Trash may be last copies.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left: %1. Maybe last copies: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; will be excluded from all future scans. Press &quot;OK&quot; to exclude.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is not there any more.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 file, %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 files, %2 each</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 can be regained</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTreeView</name>
    <message>
        <source>Extensions and sets</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::RulePanel</name>
    <message>
        <source>The first found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The newest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The oldest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The shortest path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The longest path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The copy in a preferred folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark by Rule</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep in each set:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Never mark files in:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add the folders whose copies stay.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No folders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep in each set</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preferred folders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Never mark files in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add preferred folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove preferred folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add protected folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove protected folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::RuleTexts</name>
    <message>
        <source>No files will be marked.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 file (%1) will be marked in 1 set.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 files (%2) will be marked in 1 set.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 files (%2) will be marked in %3 sets.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 set has no copy that may be marked.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 sets have no copy that may be marked.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Earlier marks are replaced.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::ScanScreenTexts</name>
    <message>
        <source>Collecting Files...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Collecting Files: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Processing File: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waiting for: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Elapsed Time: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Searching for duplicate files...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Searching for duplicate files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No duplicates File found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There was not enough memory to finish the scan. The result is incomplete.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pause</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Resume</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2 compared</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>less than a minute left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>about %1 hours left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>about 1 minute left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>about %1 minutes left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paused</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stopping…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waiting for the file in hand.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::Screen</name>
    <message>
        <source>Home</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::SearchField</name>
    <message>
        <source>Clear search</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::ShownNumbers</name>
    <message>
        <source>en</source>
        <comment>the code of the language of these texts</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>date, time</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::UpdateCheck</name>
    <message>
        <source>Your application is up to date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No update required.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ok</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New update available (Tarvin Duplicate File Remover %1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Would you like to update this version?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tarvin::ViewBackground</name>
    <message>
        <source>Tarvin Duplicate File Remover</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Photos occupy most of the space on your Device. Many of them are duplicates. Clean all similar photos to recover space.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search Exact</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search photos that are similar enough</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>to be one and the same file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search Similar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search photos that are similar</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
