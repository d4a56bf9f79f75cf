<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>tarvin::AboutPanel</name>
    <message>
        <source>Finds files with identical content, groups them into sets and moves the copies you choose to the Trash.</source>
        <translation>Findet Dateien mit gleichem Inhalt, fasst sie in Gruppen zusammen und verschiebt die Kopien, die Sie wählen, in den Papierkorb.</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>© Tarvin Software. All rights reserved.</source>
        <translation>© Tarvin Software. Alle Rechte vorbehalten.</translation>
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
        <translation>Ok</translation>
    </message>
</context>
<context>
    <name>tarvin::AppDelegate</name>
    <message>
        <source>A operation is in progress. Please stop the current process.</source>
        <translation>Ein Vorgang läuft noch. Bitte brechen Sie ihn zuerst ab.</translation>
    </message>
    <message>
        <source>To scan other folders, return to the start screen first.</source>
        <translation>Um andere Ordner zu durchsuchen, kehren Sie zuerst zur Startseite zurück.</translation>
    </message>
</context>
<context>
    <name>tarvin::CloseButton</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>tarvin::DeletionPanel</name>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Moving to the Trash</source>
        <translation>In den Papierkorb verschieben</translation>
    </message>
    <message>
        <source>Deleting files, please wait...</source>
        <translation>Dateien werden gelöscht, bitte warten ...</translation>
    </message>
    <message>
        <source>Deletion progress</source>
        <translation>Fortschritt des Löschens</translation>
    </message>
    <message>
        <source>Marked files go to the Trash. You can put them back from there.</source>
        <translation>Markierte Dateien kommen in den Papierkorb. Von dort können Sie sie zurückholen.</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionListPanel</name>
    <message>
        <source>No exceptions</source>
        <translation>Keine Ausnahmen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove All Missing</source>
        <translation>Alle fehlenden entfernen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Files that you add to the exceptions are skipped by every later scan.</source>
        <translation>Dateien, die Sie zu den Ausnahmen hinzufügen, überspringt jede spätere Suche.</translation>
    </message>
    <message>
        <source>Exceptions</source>
        <translation>Ausnahmen</translation>
    </message>
    <message>
        <source>Search names and folders</source>
        <translation>Namen und Ordner durchsuchen</translation>
    </message>
    <message>
        <source>Search exceptions</source>
        <translation>Ausnahmen durchsuchen</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionListTexts</name>
    <message>
        <source>1 file</source>
        <translation>1 Datei</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1 Dateien</translation>
    </message>
    <message>
        <source>1 file, not there any more</source>
        <translation>1 Datei, nicht mehr vorhanden</translation>
    </message>
    <message>
        <source>%1 files, %2 not there any more</source>
        <translation>%1 Dateien, %2 nicht mehr vorhanden</translation>
    </message>
    <message>
        <source>%1 of 1 file</source>
        <translation>%1 von 1 Datei</translation>
    </message>
    <message>
        <source>%1 of %2 files</source>
        <translation>%1 von %2 Dateien</translation>
    </message>
    <message>
        <source>No exception matches &quot;%1&quot;.</source>
        <translation>Keine Ausnahme passt zu „%1“.</translation>
    </message>
    <message>
        <source>Exceptions</source>
        <translation>Ausnahmen</translation>
    </message>
    <message>
        <source>The exceptions could not be saved.</source>
        <translation>Die Ausnahmen konnten nicht gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionPanel</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
    <message>
        <source>Add to Exceptions</source>
        <translation>Ausschließen</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionRows</name>
    <message>
        <source>Not there any more</source>
        <translation>Nicht mehr vorhanden</translation>
    </message>
    <message>
        <source>Drive not attached</source>
        <translation>Laufwerk nicht angeschlossen</translation>
    </message>
    <message>
        <source>%1, %2, not there any more</source>
        <comment>name of a file, its folder</comment>
        <translation>%1, %2, nicht mehr vorhanden</translation>
    </message>
    <message>
        <source>%1, %2, drive not attached</source>
        <comment>name of a file, its folder</comment>
        <translation>%1, %2, Laufwerk nicht angeschlossen</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>name of a file, its folder</comment>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
</context>
<context>
    <name>tarvin::ExportTexts</name>
    <message>
        <source>Export Results</source>
        <translation>Ergebnisse exportieren</translation>
    </message>
    <message>
        <source>Duplicate files %1</source>
        <translation>Doppelte Dateien %1</translation>
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
        <translation>Text</translation>
    </message>
    <message>
        <source>1 set exported.</source>
        <translation>1 Gruppe exportiert.</translation>
    </message>
    <message>
        <source>%1 sets exported.</source>
        <translation>%1 Gruppen exportiert.</translation>
    </message>
    <message>
        <source>The results could not be exported.</source>
        <translation>Die Ergebnisse konnten nicht exportiert werden.</translation>
    </message>
    <message>
        <source>Exporting the results…</source>
        <translation>Die Ergebnisse werden exportiert…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>tarvin::FileActions</name>
    <message>
        <source>Actions for %1</source>
        <comment>a menu; %1 is a file&apos;s name</comment>
        <translation>Aktionen für %1</translation>
    </message>
</context>
<context>
    <name>tarvin::FileDialogs</name>
    <message>
        <source>Add Folders</source>
        <translation>Ordner hinzufügen</translation>
    </message>
    <message>
        <source>Add Photos</source>
        <translation>Fotos hinzufügen</translation>
    </message>
    <message>
        <source>Photos</source>
        <translation>Fotos</translation>
    </message>
    <message>
        <source>Only photos of these types can be added: %1.</source>
        <translation>Nur Fotos dieser Typen können hinzugefügt werden: %1.</translation>
    </message>
    <message>
        <source>Folders not shown here can be dropped onto the list.</source>
        <translation>Ordner, die hier fehlen, können auf die Liste gezogen werden.</translation>
    </message>
    <message>
        <source>Photos not shown here can be dropped onto the list.</source>
        <translation>Fotos, die hier fehlen, können auf die Liste gezogen werden.</translation>
    </message>
    <message>
        <source>Some of the chosen items cannot be added here. Please drop them onto the list.</source>
        <translation>Einige der gewählten Objekte können hier nicht hinzugefügt werden. Bitte ziehen Sie sie auf die Liste.</translation>
    </message>
    <message>
        <source>%1 already exists. Do you want to replace it?</source>
        <translation>%1 ist schon vorhanden. Möchten Sie die Datei ersetzen?</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Some of the chosen items cannot be added here.</source>
        <translation>Einige der gewählten Objekte können hier nicht hinzugefügt werden.</translation>
    </message>
</context>
<context>
    <name>tarvin::FileMenu</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Open Containing Folder</source>
        <translation>Enthaltenden Ordner öffnen</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Pfad kopieren</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>Diese behalten</translation>
    </message>
    <message>
        <source>Mark All in This Folder</source>
        <translation>Alle in diesem Ordner markieren</translation>
    </message>
    <message>
        <source>Add to Exceptions…</source>
        <translation>Zu Ausnahmen hinzufügen …</translation>
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
Größe              : %2
Abmessungen   : %3
Erstellt               : %4
Geändert           : %5</translation>
    </message>
    <message>
        <source> %1
Size                       : %2
Created Date        : %3
Modified Date       : %4</source>
        <translation> %1
Größe          : %2
Erstellt           : %3
Geändert       : %4</translation>
    </message>
</context>
<context>
    <name>tarvin::FileReasons</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Grund</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
</context>
<context>
    <name>tarvin::Help</name>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
</context>
<context>
    <name>tarvin::HomeScreen</name>
    <message>
        <source>Find duplicate files</source>
        <translation>Doppelte Dateien finden</translation>
    </message>
    <message>
        <source>Choose where to look. Identical files are grouped into sets, so you can review them and move the copies to the Trash.</source>
        <translation>Wählen Sie, wo gesucht wird. Gleiche Dateien erscheinen in Gruppen, so dass Sie sie prüfen und die Kopien in den Papierkorb verschieben können.</translation>
    </message>
    <message>
        <source>Scan Drives</source>
        <translation>Laufwerke durchsuchen</translation>
    </message>
    <message>
        <source>Scan Folders</source>
        <translation>Ordner durchsuchen</translation>
    </message>
</context>
<context>
    <name>tarvin::HomeTexts</name>
    <message>
        <source>Files cleaned so far: %1 (%2)</source>
        <translation>Bisher bereinigte Dateien: %1 (%2)</translation>
    </message>
</context>
<context>
    <name>tarvin::InformationPanel</name>
    <message>
        <source>Review</source>
        <translation>Ansehen</translation>
    </message>
    <message>
        <source>Show…</source>
        <translation>Anzeigen…</translation>
    </message>
    <message>
        <source>Show the files that were left where they are</source>
        <translation>Die Dateien anzeigen, die an ihrem Platz geblieben sind</translation>
    </message>
    <message>
        <source>Show what was not read…</source>
        <translation>Nicht Gelesenes zeigen…</translation>
    </message>
</context>
<context>
    <name>tarvin::KeptFiles</name>
    <message>
        <source>Not there any more</source>
        <translation>Nicht mehr vorhanden</translation>
    </message>
    <message>
        <source>Changed since the scan</source>
        <translation>Seit der Suche geändert</translation>
    </message>
    <message>
        <source>No other copy is left</source>
        <translation>Keine andere Kopie mehr vorhanden</translation>
    </message>
    <message>
        <source>Stopped before its turn</source>
        <translation>Vorher abgebrochen</translation>
    </message>
    <message>
        <source>The Trash of this volume is full</source>
        <translation>Der Papierkorb ist voll</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Keine Berechtigung</translation>
    </message>
    <message>
        <source>Its move was not written down before</source>
        <translation>Das Verschieben war nicht vorher aufgezeichnet</translation>
    </message>
    <message>
        <source>In the Trash, not moved back: %1</source>
        <translation>Im Papierkorb, nicht zurückgelegt: %1</translation>
    </message>
    <message>
        <source>The disk is full</source>
        <translation>Das Laufwerk ist voll</translation>
    </message>
    <message>
        <source>Its copy on another volume may be the same file</source>
        <translation>Seine Kopie auf einem anderen Laufwerk ist vielleicht dieselbe Datei</translation>
    </message>
</context>
<context>
    <name>tarvin::KeptList</name>
    <message>
        <source>Files to check</source>
        <translation>Dateien, die zu prüfen sind</translation>
    </message>
    <message>
        <source>Show the files to check</source>
        <translation>Die Dateien anzeigen, die zu prüfen sind</translation>
    </message>
    <message>
        <source>Could Not Be Moved Back</source>
        <translation>Nicht zurückgelegt</translation>
    </message>
    <message>
        <source>These files are in the Trash. No other copy of them may be left outside it.</source>
        <translation>Diese Dateien sind im Papierkorb. Außerhalb gibt es vielleicht keine Kopie mehr.</translation>
    </message>
    <message>
        <source>Files to Check</source>
        <translation>Bitte prüfen</translation>
    </message>
    <message>
        <source>Files in the Trash may be last copies. The others were not moved and are still marked.</source>
        <translation>Dateien im Papierkorb sind vielleicht letzte Kopien. Die anderen sind noch da und markiert.</translation>
    </message>
</context>
<context>
    <name>tarvin::ListPanel</name>
    <message>
        <source>These files were not moved to the Trash. They are still in the results and still marked.</source>
        <translation>Diese Dateien kamen nicht in den Papierkorb. Sie stehen noch markiert im Ergebnis.</translation>
    </message>
    <message>
        <source>Copy List</source>
        <translation>Liste kopieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Left Where They Are</source>
        <translation>An ihrem Platz geblieben</translation>
    </message>
    <message>
        <source>Files left where they are</source>
        <translation>Dateien, die an ihrem Platz geblieben sind</translation>
    </message>
    <message>
        <source>Could Not Be Read</source>
        <translation>Nicht lesbar</translation>
    </message>
    <message>
        <source>These folders and files were left out of the scan. Copies in them were not found.</source>
        <translation>Diese Ordner und Dateien fehlen in der Suche. Kopien darin blieben unentdeckt.</translation>
    </message>
    <message>
        <source>Folders and files that could not be read</source>
        <translation>Ordner und Dateien, die nicht gelesen werden konnten</translation>
    </message>
</context>
<context>
    <name>tarvin::LocationScreen</name>
    <message>
        <source>Mark All</source>
        <translation>Alle markieren</translation>
    </message>
    <message>
        <source>Unmark All</source>
        <translation>Keine markieren</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>Aus Liste entfernen</translation>
    </message>
    <message>
        <source>Add Photos</source>
        <translation>Fotos hinzufügen</translation>
    </message>
    <message>
        <source>Add Folders</source>
        <translation>Ordner hinzufügen</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Markieren</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Check the locations to scan. You can also drop folders here.</source>
        <translation>Kreuzen Sie die Orte an, die durchsucht werden. Sie können Ordner auch hierher ziehen.</translation>
    </message>
    <message>
        <source>Locations</source>
        <translation>Orte</translation>
    </message>
    <message>
        <source>No locations yet. Add folders, or drop them here.</source>
        <translation>Noch keine Orte. Fügen Sie Ordner hinzu oder ziehen Sie sie hierher.</translation>
    </message>
    <message>
        <source>Choose Locations</source>
        <translation>Orte wählen</translation>
    </message>
</context>
<context>
    <name>tarvin::LocationTexts</name>
    <message>
        <source>File already added.</source>
        <translation>Die Datei ist schon in der Liste.</translation>
    </message>
    <message>
        <source>Unsupported file.</source>
        <translation>Diese Art Datei wird nicht unterstützt.</translation>
    </message>
    <message>
        <source>Image already added.</source>
        <translation>Das Bild ist schon in der Liste.</translation>
    </message>
    <message>
        <source>Folder already added.</source>
        <translation>Der Ordner ist schon in der Liste.</translation>
    </message>
    <message>
        <source>Select Folders (Double click to go deeper)</source>
        <translation>Ordner wählen (Doppelklick öffnet einen Ordner)</translation>
    </message>
    <message>
        <source>Select Drive</source>
        <translation>Laufwerk wählen</translation>
    </message>
    <message>
        <source>Scan</source>
        <comment>header of a column of check boxes</comment>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Select the check box and click &apos;Scan&apos; button to proceed.</source>
        <translation>Kreuzen Sie das Kästchen an und klicken Sie auf „Suchen“, um fortzufahren.</translation>
    </message>
    <message>
        <source>No Folders.</source>
        <translation>Keine Ordner.</translation>
    </message>
    <message>
        <source>Scan this location: %1</source>
        <translation>Diesen Ort durchsuchen: %1</translation>
    </message>
    <message>
        <source>Unmark</source>
        <translation>Markierung aufheben</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Markieren</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Suchen</translation>
    </message>
</context>
<context>
    <name>tarvin::MainWindow</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>User Guide</source>
        <translation>Benutzerhandbuch</translation>
    </message>
    <message>
        <source>Contact Support</source>
        <translation>Support kontaktieren</translation>
    </message>
    <message>
        <source>Check for Updates...</source>
        <translation>Nach Updates suchen ...</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>Info zu %1</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>Are you sure, you want to stop this process?</source>
        <translation>Möchten Sie diesen Vorgang wirklich abbrechen?</translation>
    </message>
    <message>
        <source>All the files of same set cannot be selected</source>
        <translation>Nicht alle Dateien einer Gruppe können markiert werden</translation>
    </message>
    <message>
        <source>Export Results…</source>
        <translation>Ergebnisse exportieren…</translation>
    </message>
    <message>
        <source>Put Back Last Clean-up…</source>
        <translation>Letztes Aufräumen rückgängig machen…</translation>
    </message>
    <message>
        <source>Skip Hidden Files and Folders</source>
        <translation>Versteckte Dateien und Ordner überspringen</translation>
    </message>
    <message>
        <source>Remember Scans</source>
        <translation>Suchergebnisse merken</translation>
    </message>
    <message>
        <source>Scan in the Background</source>
        <translation>Im Hintergrund suchen</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>Mark by Rule…</source>
        <translation>Nach Regel markieren…</translation>
    </message>
    <message>
        <source>Manage Exceptions…</source>
        <translation>Ausnahmen verwalten…</translation>
    </message>
</context>
<context>
    <name>tarvin::NotReadFiles</name>
    <message>
        <source>Trash folders are never scanned</source>
        <translation>Papierkörbe werden nie durchsucht</translation>
    </message>
    <message>
        <source>1 folder could not be read.</source>
        <translation>1 Ordner konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>%1 folders could not be read.</source>
        <translation>%1 Ordner konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>1 file could not be read.</source>
        <translation>1 Datei konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>%1 files could not be read.</source>
        <translation>%1 Dateien konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>1 folder and 1 file could not be read.</source>
        <translation>1 Ordner und 1 Datei konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>1 folder and %1 files could not be read.</source>
        <translation>1 Ordner und %1 Dateien konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>%1 folders and 1 file could not be read.</source>
        <translation>%1 Ordner und 1 Datei konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>%1 folders and %2 files could not be read.</source>
        <translation>%1 Ordner und %2 Dateien konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Keine Berechtigung</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>Ein-/Ausgabefehler</translation>
    </message>
    <message>
        <source>Not there any more</source>
        <translation>Nicht mehr vorhanden</translation>
    </message>
    <message>
        <source>Stopped answering</source>
        <translation>Antwortet nicht mehr</translation>
    </message>
    <message>
        <source>Changed while it was read</source>
        <translation>Während des Lesens geändert</translation>
    </message>
</context>
<context>
    <name>tarvin::OwnReasons</name>
    <message>
        <source>No longer in the Trash</source>
        <translation>Nicht mehr im Papierkorb</translation>
    </message>
    <message>
        <source>Something else has its name now</source>
        <translation>Etwas anderes hat jetzt seinen Namen</translation>
    </message>
    <message>
        <source>Its Trash is on another volume</source>
        <translation>Sein Papierkorb liegt auf einem anderen Laufwerk</translation>
    </message>
    <message>
        <source>This volume has no Trash</source>
        <translation>Kein Papierkorb auf diesem Laufwerk</translation>
    </message>
    <message>
        <source>A folder of the Trash is a link</source>
        <translation>Ein Ordner des Papierkorbs ist eine Verknüpfung</translation>
    </message>
    <message>
        <source>A part of the Trash is not a folder</source>
        <translation>Ein Teil des Papierkorbs ist kein Ordner</translation>
    </message>
    <message>
        <source>The Trash belongs to another user</source>
        <translation>Der Papierkorb gehört jemand anderem</translation>
    </message>
    <message>
        <source>Other users can change the Trash</source>
        <translation>Andere können den Papierkorb ändern</translation>
    </message>
    <message>
        <source>There is no free name in the Trash</source>
        <translation>Im Papierkorb ist kein Name mehr frei</translation>
    </message>
    <message>
        <source>there is no home folder to keep the journal in</source>
        <translation>es gibt keinen persönlichen Ordner für die Aufzeichnungen</translation>
    </message>
    <message>
        <source>in use by another process</source>
        <translation>ein anderes Programm benutzt es gerade</translation>
    </message>
    <message>
        <source>a database of another program</source>
        <translation>die Datenbank eines anderen Programms</translation>
    </message>
    <message>
        <source>database or disk is full</source>
        <translation>die Datenbank oder der Datenträger ist voll</translation>
    </message>
    <message>
        <source>written by a newer version of the program</source>
        <translation>von einer neueren Version des Programms geschrieben</translation>
    </message>
    <message>
        <source>is a link</source>
        <translation>ist eine Verknüpfung</translation>
    </message>
    <message>
        <source>the file is damaged</source>
        <translation>die Datei ist beschädigt</translation>
    </message>
    <message>
        <source>the file was moved or replaced</source>
        <translation>die Datei wurde verschoben oder ersetzt</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>die Datei ist zu groß</translation>
    </message>
    <message>
        <source>not a property list</source>
        <translation>keine Eigenschaftsliste</translation>
    </message>
    <message>
        <source>not a property list of totals</source>
        <translation>keine Eigenschaftsliste mit Summen</translation>
    </message>
    <message>
        <source>a link to a missing file</source>
        <translation>eine Verknüpfung mit einer fehlenden Datei</translation>
    </message>
</context>
<context>
    <name>tarvin::ProgressScreen</name>
    <message>
        <source>Searching for duplicate files</source>
        <translation>Suche nach doppelten Dateien</translation>
    </message>
    <message>
        <source>Searching for duplicate files...</source>
        <translation>Suche nach doppelten Dateien ...</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Scan progress</source>
        <translation>Fortschritt der Suche</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackList</name>
    <message>
        <source>No longer in the Trash</source>
        <translation>Nicht mehr im Papierkorb</translation>
    </message>
    <message>
        <source>Changed in the Trash</source>
        <translation>Im Papierkorb geändert</translation>
    </message>
    <message>
        <source>Drive not attached</source>
        <translation>Laufwerk nicht angeschlossen</translation>
    </message>
    <message>
        <source>Stopped before its turn</source>
        <translation>Vorher abgebrochen</translation>
    </message>
    <message>
        <source>The disk is full</source>
        <translation>Das Laufwerk ist voll</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Keine Berechtigung</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>Something else is there now: will be named &quot;%1&quot;</source>
        <translation>Dort ist jetzt etwas anderes: wird „%1“ heißen</translation>
    </message>
    <message>
        <source>The folder is gone: will be made again</source>
        <translation>Der Ordner fehlt: wird neu angelegt</translation>
    </message>
    <message>
        <source>%1, to %2, %3</source>
        <comment>name of a file, its folder, what becomes of it</comment>
        <translation>%1, nach %2, %3</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>File and folder it goes back to</source>
        <translation>Datei und Ordner, in den sie zurückkommt</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Its folder is a link now</source>
        <translation>Sein Ordner ist jetzt eine Verknüpfung</translation>
    </message>
    <message>
        <source>Something else is where its folder was</source>
        <translation>Wo sein Ordner war, ist jetzt etwas anderes</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackPanel</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Put Back</source>
        <translation>Zurücklegen</translation>
    </message>
    <message>
        <source>Put Back Last Clean-up</source>
        <translation>Letztes Aufräumen rückgängig machen</translation>
    </message>
    <message>
        <source>Files of the last clean-up</source>
        <translation>Dateien des letzten Aufräumens</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackProgress</name>
    <message>
        <source>Stop</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Putting Back</source>
        <translation>Zurücklegen</translation>
    </message>
    <message>
        <source>Putting files back, please wait...</source>
        <translation>Dateien werden zurückgelegt, bitte warten...</translation>
    </message>
    <message>
        <source>Put back progress</source>
        <translation>Fortschritt beim Zurücklegen</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackReport</name>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
    <message>
        <source>Put Back Last Clean-up</source>
        <translation>Letztes Aufräumen rückgängig machen</translation>
    </message>
    <message>
        <source>Files that could not be put back</source>
        <translation>Dateien, die nicht zurückgelegt werden konnten</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackTexts</name>
    <message>
        <source>Put Back Last Clean-up</source>
        <translation>Letztes Aufräumen rückgängig machen</translation>
    </message>
    <message>
        <source>1 file (%1)</source>
        <translation>1 Datei (%1)</translation>
    </message>
    <message>
        <source>%1 files (%2)</source>
        <translation>%1 Dateien (%2)</translation>
    </message>
    <message>
        <source>Checking…</source>
        <translation>Wird geprüft…</translation>
    </message>
    <message>
        <source>No files can be put back.</source>
        <translation>Keine Datei kann zurückgelegt werden.</translation>
    </message>
    <message>
        <source>1 file will be put back.</source>
        <translation>1 Datei wird zurückgelegt.</translation>
    </message>
    <message>
        <source>%1 files will be put back.</source>
        <translation>%1 Dateien werden zurückgelegt.</translation>
    </message>
    <message>
        <source>1 file cannot be put back.</source>
        <translation>1 Datei kann nicht zurückgelegt werden.</translation>
    </message>
    <message>
        <source>%1 files cannot be put back.</source>
        <translation>%1 Dateien können nicht zurückgelegt werden.</translation>
    </message>
    <message>
        <source>%1 of %2 files. Nothing that is there now is replaced.</source>
        <translation>%1 von %2 Dateien. Nichts, was jetzt dort ist, wird ersetzt.</translation>
    </message>
    <message>
        <source>Files Put Back: %1</source>
        <translation>Zurückgelegte Dateien: %1</translation>
    </message>
    <message>
        <source>Size: %1</source>
        <translation>Größe: %1</translation>
    </message>
    <message>
        <source>1 file could not be put back:</source>
        <translation>1 Datei konnte nicht zurückgelegt werden:</translation>
    </message>
    <message>
        <source>%1 files could not be put back:</source>
        <translation>%1 Dateien konnten nicht zurückgelegt werden:</translation>
    </message>
    <message>
        <source>Scan again to see these files in the results.</source>
        <translation>Suchen Sie erneut, um diese Dateien im Ergebnis zu sehen.</translation>
    </message>
    <message>
        <source>There is nothing to put back.</source>
        <translation>Es gibt nichts zurückzulegen.</translation>
    </message>
    <message>
        <source>Nothing has been cleaned up yet.</source>
        <translation>Es wurde noch nichts aufgeräumt.</translation>
    </message>
    <message>
        <source>The last clean-up has been put back already.</source>
        <translation>Das letzte Aufräumen ist schon rückgängig gemacht.</translation>
    </message>
    <message>
        <source>Its files are no longer in the Trash.</source>
        <translation>Die Dateien sind nicht mehr im Papierkorb.</translation>
    </message>
    <message>
        <source>The last clean-up could not be put back.</source>
        <translation>Das letzte Aufräumen ließ sich nicht rückgängig machen.</translation>
    </message>
    <message>
        <source>Not all was done or written down: %1</source>
        <translation>Nicht alles getan oder aufgezeichnet: %1</translation>
    </message>
</context>
<context>
    <name>tarvin::RememberedScans</name>
    <message>
        <source>The remembered scans could not be removed.</source>
        <translation>Die gemerkten Suchergebnisse konnten nicht entfernt werden.</translation>
    </message>
    <message>
        <source>The remembered scans were damaged. This scan has read all files.</source>
        <translation>Die gemerkten Suchergebnisse waren beschädigt. Diese Suche hat alle Dateien gelesen.</translation>
    </message>
    <message>
        <source>The remembered scans could not be used: %1</source>
        <translation>Die gemerkten Suchergebnisse konnten nicht verwendet werden: %1</translation>
    </message>
    <message>
        <source>This scan could not be remembered: %1</source>
        <translation>Diese Suche konnte nicht gemerkt werden: %1</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultScreen</name>
    <message>
        <source>Duplicate Files</source>
        <translation>Doppelte Dateien</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Videos</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Audio</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Dokumente</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Andere</translation>
    </message>
    <message>
        <source>Mark All</source>
        <translation>Alle markieren</translation>
    </message>
    <message>
        <source>Unmark All</source>
        <translation>Keine markieren</translation>
    </message>
    <message>
        <source>Add to Exceptions</source>
        <translation>Ausschließen</translation>
    </message>
    <message>
        <source>Remove Exceptions</source>
        <translation>Ausnahmen entfernen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>In den Papierkorb</translation>
    </message>
    <message>
        <source>Delete Permanently</source>
        <translation>Endgültig löschen</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Sortieren</translation>
    </message>
    <message>
        <source>File order</source>
        <translation>Reihenfolge der Dateien</translation>
    </message>
    <message>
        <source>Sort direction</source>
        <translation>Sortierrichtung</translation>
    </message>
    <message>
        <source>Files of the set</source>
        <translation>Dateien der Gruppe</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>File properties</source>
        <translation>Eigenschaften der Datei</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Created Date</source>
        <translation>Erstellt</translation>
    </message>
    <message>
        <source>Modified Date</source>
        <translation>Geändert</translation>
    </message>
    <message>
        <source>Dimension</source>
        <translation>Abmessungen</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>Aufsteigend</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>Absteigend</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Markieren</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message>
        <source>Move Others to Trash</source>
        <translation>Andere in den Papierkorb</translation>
    </message>
    <message>
        <source>Mark All in Set</source>
        <translation>Alle der Gruppe markieren</translation>
    </message>
    <message>
        <source>Unmark All in Set</source>
        <translation>Keine der Gruppe markieren</translation>
    </message>
    <message>
        <source>Get Info</source>
        <translation>Informationen</translation>
    </message>
    <message>
        <source>Show…</source>
        <translation>Anzeigen…</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTable</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Set</source>
        <comment>header of a column with the numbers of sets</comment>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Mark</source>
        <comment>header of a column of check boxes</comment>
        <translation>Markieren</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTexts</name>
    <message>
        <source>Mark %1</source>
        <translation>%1 markieren</translation>
    </message>
    <message>
        <source>Partly marked</source>
        <translation>Teilweise markiert</translation>
    </message>
    <message>
        <source>Marked Duplicate Files: %1</source>
        <translation>Markierte Dateien: %1</translation>
    </message>
    <message>
        <source>Marked File Size: %1</source>
        <translation>Markierte Größe: %1</translation>
    </message>
    <message>
        <source>All the files of same set cannot be selected</source>
        <translation>Nicht alle Dateien einer Gruppe können markiert werden</translation>
    </message>
    <message>
        <source>Path: %1</source>
        <translation>Pfad: %1</translation>
    </message>
    <message>
        <source>Double Click On FIle To Open</source>
        <translation>Doppelklick auf die Datei öffnet sie</translation>
    </message>
    <message>
        <source>Sort by size</source>
        <translation>Nach Größe sortieren</translation>
    </message>
    <message>
        <source>Sort by name</source>
        <translation>Nach Name sortieren</translation>
    </message>
    <message>
        <source>Sort by created date</source>
        <translation>Nach Erstellungsdatum sortieren</translation>
    </message>
    <message>
        <source>Sort by modified date</source>
        <translation>Nach Änderungsdatum sortieren</translation>
    </message>
    <message>
        <source>Sort by dimension</source>
        <translation>Nach Abmessungen sortieren</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>Aufsteigend</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>Absteigend</translation>
    </message>
    <message>
        <source>Duplicates Found</source>
        <translation>Doppelte Dateien gefunden</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Review</source>
        <translation>Ansehen</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
    <message>
        <source>Media: %1</source>
        <translation>Medien: %1</translation>
    </message>
    <message>
        <source>Documents: %1</source>
        <translation>Dokumente: %1</translation>
    </message>
    <message>
        <source>Others: %1</source>
        <translation>Andere: %1</translation>
    </message>
    <message>
        <source>Image Duplicates: %1</source>
        <translation>Doppelte Bilder: %1</translation>
    </message>
    <message>
        <source>Video Duplicates: %1</source>
        <translation>Doppelte Videos: %1</translation>
    </message>
    <message>
        <source>Audio Duplicates: %1</source>
        <translation>Doppelte Audiodateien: %1</translation>
    </message>
    <message>
        <source>Documents Duplicates: %1</source>
        <translation>Doppelte Dokumente: %1</translation>
    </message>
    <message>
        <source>Other Duplicates: %1</source>
        <translation>Andere doppelte Dateien: %1</translation>
    </message>
    <message>
        <source>Memory Occupied: %1</source>
        <translation>Belegter Speicher: %1</translation>
    </message>
    <message>
        <source>No Image Duplicates Found</source>
        <translation>Keine doppelten Bilder gefunden</translation>
    </message>
    <message>
        <source>No Video Duplicates Found</source>
        <translation>Keine doppelten Videos gefunden</translation>
    </message>
    <message>
        <source>No Audio Duplicates Found</source>
        <translation>Keine doppelten Audiodateien gefunden</translation>
    </message>
    <message>
        <source>No Documents Duplicates Found</source>
        <translation>Keine doppelten Dokumente gefunden</translation>
    </message>
    <message>
        <source>No Other Duplicates Found</source>
        <translation>Keine anderen doppelten Dateien gefunden</translation>
    </message>
    <message>
        <source>Please select any file to delete.</source>
        <translation>Bitte markieren Sie eine Datei, die gelöscht werden soll.</translation>
    </message>
    <message>
        <source>Deleting files, please wait...</source>
        <translation>Dateien werden gelöscht, bitte warten ...</translation>
    </message>
    <message>
        <source>Are you sure, you want to stop this process?</source>
        <translation>Möchten Sie diesen Vorgang wirklich abbrechen?</translation>
    </message>
    <message>
        <source>Duplicates Cleaned: %1</source>
        <translation>Bereinigte Dateien: %1</translation>
    </message>
    <message>
        <source>Space Regained: %1 </source>
        <translation>Gewonnener Speicher: %1 </translation>
    </message>
    <message>
        <source>The selected files will be excluded from all future scans. Press &quot;OK&quot; to exclude.</source>
        <translation>Die gewählten Dateien werden von allen künftigen Suchläufen ausgeschlossen. Drücken Sie „OK“, um sie auszuschließen.</translation>
    </message>
    <message>
        <source>The selected similar photos will be excluded from all future scans. Press &quot;Ok&quot; to exclude.</source>
        <translation>Die gewählten ähnlichen Fotos werden von allen künftigen Suchläufen ausgeschlossen. Drücken Sie „Ok“, um sie auszuschließen.</translation>
    </message>
    <message>
        <source>
Successfully added %1 files to exceptions.</source>
        <translation>
%1 Dateien wurden ausgeschlossen.</translation>
    </message>
    <message>
        <source>Are you sure, you want to remove all exceptions?</source>
        <translation>Möchten Sie wirklich alle Ausnahmen entfernen?</translation>
    </message>
    <message>
        <source>
All exceptions has been removed.</source>
        <translation>
Alle Ausnahmen wurden entfernt.</translation>
    </message>
    <message>
        <source>YES</source>
        <translation>JA</translation>
    </message>
    <message>
        <source>NO</source>
        <translation>NEIN</translation>
    </message>
    <message>
        <source>The clean-up could not begin: its moves cannot be written down.</source>
        <translation>Das Aufräumen konnte nicht beginnen: Die Schritte lassen sich nicht aufzeichnen.</translation>
    </message>
    <message>
        <source>The file was set aside; the next clean-up begins a new one.</source>
        <translation>Die Datei wurde beiseitegelegt; das nächste Aufräumen beginnt eine neue.</translation>
    </message>
    <message>
        <source>1 file was left where it is.</source>
        <translation>1 Datei blieb, wo sie ist.</translation>
    </message>
    <message>
        <source>%1 files were left where they are.</source>
        <translation>%1 Dateien blieben, wo sie sind.</translation>
    </message>
    <message>
        <source>1 file in the Trash may be the last copy.</source>
        <translation>Im Papierkorb: 1 evtl. letzte Kopie.</translation>
    </message>
    <message>
        <source>%1 files in the Trash may be last copies.</source>
        <translation>Im Papierkorb: %1 evtl. letzte Kopien.</translation>
    </message>
    <message>
        <source>Left: %1. Maybe last copies: %2.</source>
        <translation>%1 belassen, %2 evtl. letzte Kopie.</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; will be excluded from all future scans. Press &quot;OK&quot; to exclude.</source>
        <translation>Die Datei „%1“ wird von allen künftigen Suchläufen ausgeschlossen. Drücken Sie „OK“, um sie auszuschließen.</translation>
    </message>
    <message>
        <source>The file is not there any more.</source>
        <translation>Die Datei ist nicht mehr da.</translation>
    </message>
    <message>
        <source>1 file, %1</source>
        <translation>1 Datei, %1</translation>
    </message>
    <message>
        <source>%1 files, %2 each</source>
        <translation>%1 Dateien zu je %2</translation>
    </message>
    <message>
        <source>%1 can be regained</source>
        <translation>%1 können frei werden</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTreeView</name>
    <message>
        <source>Extensions and sets</source>
        <translation>Endungen, Gruppen</translation>
    </message>
</context>
<context>
    <name>tarvin::RulePanel</name>
    <message>
        <source>The first found</source>
        <translation>Die zuerst gefundene</translation>
    </message>
    <message>
        <source>The newest</source>
        <translation>Die neueste</translation>
    </message>
    <message>
        <source>The oldest</source>
        <translation>Die älteste</translation>
    </message>
    <message>
        <source>The shortest path</source>
        <translation>Die mit dem kürzesten Pfad</translation>
    </message>
    <message>
        <source>The longest path</source>
        <translation>Die mit dem längsten Pfad</translation>
    </message>
    <message>
        <source>The copy in a preferred folder</source>
        <translation>Die in einem bevorzugten Ordner</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Hinzufügen…</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Markieren</translation>
    </message>
    <message>
        <source>Mark by Rule</source>
        <translation>Nach Regel markieren</translation>
    </message>
    <message>
        <source>Keep in each set:</source>
        <translation>In jeder Gruppe behalten:</translation>
    </message>
    <message>
        <source>Never mark files in:</source>
        <translation>Nie Dateien markieren in:</translation>
    </message>
    <message>
        <source>Add the folders whose copies stay.</source>
        <translation>Ordner, deren Kopien bleiben.</translation>
    </message>
    <message>
        <source>No folders</source>
        <translation>Keine Ordner</translation>
    </message>
    <message>
        <source>Keep in each set</source>
        <translation>In jeder Gruppe behalten</translation>
    </message>
    <message>
        <source>Preferred folders</source>
        <translation>Bevorzugte Ordner</translation>
    </message>
    <message>
        <source>Never mark files in</source>
        <translation>Nie Dateien markieren in</translation>
    </message>
    <message>
        <source>Add preferred folder</source>
        <translation>Bevorzugten Ordner hinzufügen</translation>
    </message>
    <message>
        <source>Remove preferred folder</source>
        <translation>Bevorzugten Ordner entfernen</translation>
    </message>
    <message>
        <source>Add protected folder</source>
        <translation>Geschützten Ordner hinzufügen</translation>
    </message>
    <message>
        <source>Remove protected folder</source>
        <translation>Geschützten Ordner entfernen</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Nach unten</translation>
    </message>
</context>
<context>
    <name>tarvin::RuleTexts</name>
    <message>
        <source>No files will be marked.</source>
        <translation>Es werden keine Dateien markiert.</translation>
    </message>
    <message>
        <source>1 file (%1) will be marked in 1 set.</source>
        <translation>1 Datei (%1) wird in 1 Gruppe markiert.</translation>
    </message>
    <message>
        <source>%1 files (%2) will be marked in 1 set.</source>
        <translation>%1 Dateien (%2) werden in 1 Gruppe markiert.</translation>
    </message>
    <message>
        <source>%1 files (%2) will be marked in %3 sets.</source>
        <translation>%1 Dateien (%2) werden in %3 Gruppen markiert.</translation>
    </message>
    <message>
        <source>1 set has no copy that may be marked.</source>
        <translation>1 Gruppe ohne markierbare Kopie.</translation>
    </message>
    <message>
        <source>%1 sets have no copy that may be marked.</source>
        <translation>%1 Gruppen ohne markierbare Kopie.</translation>
    </message>
    <message>
        <source>Earlier marks are replaced.</source>
        <translation>Bisherige Markierungen werden ersetzt.</translation>
    </message>
</context>
<context>
    <name>tarvin::ScanScreenTexts</name>
    <message>
        <source>Collecting Files...</source>
        <translation>Dateien werden gesammelt ...</translation>
    </message>
    <message>
        <source>Collecting Files: %1</source>
        <translation>Sammle Dateien: %1</translation>
    </message>
    <message>
        <source>Processing File: %1</source>
        <translation>Vergleiche Datei: %1</translation>
    </message>
    <message>
        <source>Waiting for: %1</source>
        <translation>Warte auf: %1</translation>
    </message>
    <message>
        <source>Elapsed Time: %1</source>
        <translation>Verstrichene Zeit: %1</translation>
    </message>
    <message>
        <source>Searching for duplicate files...</source>
        <translation>Suche nach doppelten Dateien ...</translation>
    </message>
    <message>
        <source>Searching for duplicate files</source>
        <translation>Suche nach doppelten Dateien</translation>
    </message>
    <message>
        <source>No duplicates File found</source>
        <translation>Keine doppelten Dateien gefunden</translation>
    </message>
    <message>
        <source>There was not enough memory to finish the scan. The result is incomplete.</source>
        <translation>Der Speicher hat für die Suche nicht ausgereicht. Das Ergebnis ist unvollständig.</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>%1 of %2 compared</source>
        <translation>%1 von %2 verglichen</translation>
    </message>
    <message>
        <source>less than a minute left</source>
        <translation>noch weniger als eine Minute</translation>
    </message>
    <message>
        <source>about %1 hours left</source>
        <translation>noch etwa %1 Stunden</translation>
    </message>
    <message>
        <source>about 1 minute left</source>
        <translation>noch etwa 1 Minute</translation>
    </message>
    <message>
        <source>about %1 minutes left</source>
        <translation>noch etwa %1 Minuten</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>Stopping…</source>
        <translation>Wird abgebrochen…</translation>
    </message>
    <message>
        <source>Waiting for the file in hand.</source>
        <translation>Warte auf die aktuelle Datei.</translation>
    </message>
</context>
<context>
    <name>tarvin::Screen</name>
    <message>
        <source>Home</source>
        <translation>Startseite</translation>
    </message>
</context>
<context>
    <name>tarvin::SearchField</name>
    <message>
        <source>Clear search</source>
        <translation>Suche löschen</translation>
    </message>
</context>
<context>
    <name>tarvin::ShownNumbers</name>
    <message>
        <source>en</source>
        <comment>the code of the language of these texts</comment>
        <translation>de</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>date, time</comment>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>tarvin::UpdateCheck</name>
    <message>
        <source>Your application is up to date</source>
        <translation>Ihr Programm ist auf dem neuesten Stand</translation>
    </message>
    <message>
        <source>No update required.</source>
        <translation>Keine Aktualisierung nötig.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
    <message>
        <source>New update available (Tarvin Duplicate File Remover %1)</source>
        <translation>Neue Version verfügbar (Tarvin Duplicate File Remover %1)</translation>
    </message>
    <message>
        <source>Would you like to update this version?</source>
        <translation>Möchten Sie diese Version aktualisieren?</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>Später erinnern</translation>
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
        <translation>Fotos belegen den größten Teil des Speichers auf Ihrem Gerät. Viele davon sind doppelt. Räumen Sie ähnliche Fotos auf, um Platz zu gewinnen.</translation>
    </message>
    <message>
        <source>Search Exact</source>
        <translation>Genau suchen</translation>
    </message>
    <message>
        <source>Search photos that are similar enough</source>
        <translation>Fotos suchen, die einander so gleichen,</translation>
    </message>
    <message>
        <source>to be one and the same file.</source>
        <translation>dass sie ein und dieselbe Datei sind.</translation>
    </message>
    <message>
        <source>Search Similar</source>
        <translation>Ähnlich suchen</translation>
    </message>
    <message>
        <source>Search photos that are similar</source>
        <translation>Fotos suchen, die einander ähneln</translation>
    </message>
</context>
</TS>
