<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>tarvin::AboutPanel</name>
    <message>
        <source>Finds files with identical content, groups them into sets and moves the copies you choose to the Trash.</source>
        <translation>Trouve les fichiers au contenu identique, les réunit en groupes et déplace vers la corbeille les copies que vous choisissez.</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>© Tarvin Software. All rights reserved.</source>
        <translation>© Tarvin Software. Tous droits réservés.</translation>
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
        <translation>Une opération est en cours. Veuillez d’abord l’arrêter.</translation>
    </message>
    <message>
        <source>To scan other folders, return to the start screen first.</source>
        <translation>Pour analyser d’autres dossiers, revenez d’abord à l’accueil.</translation>
    </message>
</context>
<context>
    <name>tarvin::CloseButton</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>tarvin::DeletionPanel</name>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Moving to the Trash</source>
        <translation>Déplacement vers la corbeille</translation>
    </message>
    <message>
        <source>Deleting files, please wait...</source>
        <translation>Suppression des fichiers, veuillez patienter…</translation>
    </message>
    <message>
        <source>Deletion progress</source>
        <translation>Progression de la suppression</translation>
    </message>
    <message>
        <source>Marked files go to the Trash. You can put them back from there.</source>
        <translation>Les fichiers marqués vont dans la corbeille, d’où vous pouvez les restaurer.</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionListPanel</name>
    <message>
        <source>No exceptions</source>
        <translation>Aucune exception</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Retirer</translation>
    </message>
    <message>
        <source>Remove All Missing</source>
        <translation>Retirer les absents</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Files that you add to the exceptions are skipped by every later scan.</source>
        <translation>Les fichiers ajoutés aux exceptions sont ignorés par toutes les analyses suivantes.</translation>
    </message>
    <message>
        <source>Exceptions</source>
        <translation>Exceptions</translation>
    </message>
    <message>
        <source>Search names and folders</source>
        <translation>Rechercher noms et dossiers</translation>
    </message>
    <message>
        <source>Search exceptions</source>
        <translation>Rechercher dans les exceptions</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionListTexts</name>
    <message>
        <source>1 file</source>
        <translation>1 fichier</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1 fichiers</translation>
    </message>
    <message>
        <source>1 file, not there any more</source>
        <translation>1 fichier, n’existe plus</translation>
    </message>
    <message>
        <source>%1 files, %2 not there any more</source>
        <translation>%1 fichiers, dont %2 n’existent plus</translation>
    </message>
    <message>
        <source>%1 of 1 file</source>
        <translation>%1 fichier sur 1</translation>
    </message>
    <message>
        <source>%1 of %2 files</source>
        <translation>%1 fichiers sur %2</translation>
    </message>
    <message>
        <source>No exception matches &quot;%1&quot;.</source>
        <translation>Aucune exception ne correspond à «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>Exceptions</source>
        <translation>Exceptions</translation>
    </message>
    <message>
        <source>The exceptions could not be saved.</source>
        <translation>Impossible d’enregistrer les exceptions.</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionPanel</name>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Add to Exceptions</source>
        <translation>Ajouter aux exceptions</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionRows</name>
    <message>
        <source>Not there any more</source>
        <translation>N’existe plus</translation>
    </message>
    <message>
        <source>Drive not attached</source>
        <translation>Disque non connecté</translation>
    </message>
    <message>
        <source>%1, %2, not there any more</source>
        <comment>name of a file, its folder</comment>
        <translation>%1, %2, n’existe plus</translation>
    </message>
    <message>
        <source>%1, %2, drive not attached</source>
        <comment>name of a file, its folder</comment>
        <translation>%1, %2, disque non connecté</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>name of a file, its folder</comment>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Dossier</translation>
    </message>
</context>
<context>
    <name>tarvin::ExportTexts</name>
    <message>
        <source>Export Results</source>
        <translation>Exporter les résultats</translation>
    </message>
    <message>
        <source>Duplicate files %1</source>
        <translation>Fichiers en double %1</translation>
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
        <translation>Texte</translation>
    </message>
    <message>
        <source>1 set exported.</source>
        <translation>1 groupe exporté.</translation>
    </message>
    <message>
        <source>%1 sets exported.</source>
        <translation>%1 groupes exportés.</translation>
    </message>
    <message>
        <source>The results could not be exported.</source>
        <translation>Impossible d’exporter les résultats.</translation>
    </message>
    <message>
        <source>Exporting the results…</source>
        <translation>Exportation des résultats…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>tarvin::FileActions</name>
    <message>
        <source>Actions for %1</source>
        <comment>a menu; %1 is a file&apos;s name</comment>
        <translation>Actions pour %1</translation>
    </message>
</context>
<context>
    <name>tarvin::FileDialogs</name>
    <message>
        <source>Add Folders</source>
        <translation>Ajouter des dossiers</translation>
    </message>
    <message>
        <source>Add Photos</source>
        <translation>Ajouter des photos</translation>
    </message>
    <message>
        <source>Photos</source>
        <translation>Photos</translation>
    </message>
    <message>
        <source>Only photos of these types can be added: %1.</source>
        <translation>Seules les photos de ces types peuvent être ajoutées&#xa0;: %1.</translation>
    </message>
    <message>
        <source>Folders not shown here can be dropped onto the list.</source>
        <translation>Les dossiers absents d’ici peuvent être déposés sur la liste.</translation>
    </message>
    <message>
        <source>Photos not shown here can be dropped onto the list.</source>
        <translation>Les photos absentes d’ici peuvent être déposées sur la liste.</translation>
    </message>
    <message>
        <source>Some of the chosen items cannot be added here. Please drop them onto the list.</source>
        <translation>Certains des éléments choisis ne peuvent pas être ajoutés ici. Déposez-les sur la liste.</translation>
    </message>
    <message>
        <source>%1 already exists. Do you want to replace it?</source>
        <translation>%1 existe déjà. Voulez-vous remplacer ce fichier&#x202f;?</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Remplacer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Some of the chosen items cannot be added here.</source>
        <translation>Certains des éléments choisis ne peuvent pas être ajoutés ici.</translation>
    </message>
</context>
<context>
    <name>tarvin::FileMenu</name>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Open Containing Folder</source>
        <translation>Ouvrir le dossier parent</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Copier le chemin</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>Garder celui-ci</translation>
    </message>
    <message>
        <source>Mark All in This Folder</source>
        <translation>Tout marquer dans ce dossier</translation>
    </message>
    <message>
        <source>Add to Exceptions…</source>
        <translation>Ajouter aux exceptions…</translation>
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
Taille             : %2
Dimensions  : %3
Créé le         : %4
Modifié le     : %5</translation>
    </message>
    <message>
        <source> %1
Size                       : %2
Created Date        : %3
Modified Date       : %4</source>
        <translation> %1
Taille         : %2
Créé le      : %3
Modifié le  : %4</translation>
    </message>
</context>
<context>
    <name>tarvin::FileReasons</name>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Emplacement</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Raison</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>et %1 de plus</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Dossier</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
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
        <translation>Trouver les doublons</translation>
    </message>
    <message>
        <source>Choose where to look. Identical files are grouped into sets, so you can review them and move the copies to the Trash.</source>
        <translation>Choisissez où chercher. Les fichiers identiques sont réunis en groupes, pour que vous puissiez les vérifier et déplacer les copies vers la corbeille.</translation>
    </message>
    <message>
        <source>Scan Drives</source>
        <translation>Analyser des disques</translation>
    </message>
    <message>
        <source>Scan Folders</source>
        <translation>Analyser des dossiers</translation>
    </message>
</context>
<context>
    <name>tarvin::HomeTexts</name>
    <message>
        <source>Files cleaned so far: %1 (%2)</source>
        <translation>Fichiers nettoyés à ce jour&#xa0;: %1 (%2)</translation>
    </message>
</context>
<context>
    <name>tarvin::InformationPanel</name>
    <message>
        <source>Review</source>
        <translation>Examiner</translation>
    </message>
    <message>
        <source>Show…</source>
        <translation>Afficher…</translation>
    </message>
    <message>
        <source>Show the files that were left where they are</source>
        <translation>Afficher les fichiers laissés en place</translation>
    </message>
    <message>
        <source>Show what was not read…</source>
        <translation>Voir les éléments non lus…</translation>
    </message>
</context>
<context>
    <name>tarvin::KeptFiles</name>
    <message>
        <source>Not there any more</source>
        <translation>N’existe plus</translation>
    </message>
    <message>
        <source>Changed since the scan</source>
        <translation>Modifié depuis l’analyse</translation>
    </message>
    <message>
        <source>No other copy is left</source>
        <translation>Il ne reste aucune autre copie</translation>
    </message>
    <message>
        <source>Stopped before its turn</source>
        <translation>Arrêté avant son tour</translation>
    </message>
    <message>
        <source>The Trash of this volume is full</source>
        <translation>La corbeille de ce volume est pleine</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Permission refusée</translation>
    </message>
    <message>
        <source>Its move was not written down before</source>
        <translation>Déplacement non consigné au préalable</translation>
    </message>
    <message>
        <source>In the Trash, not moved back: %1</source>
        <translation>Dans la corbeille, non remis en place&#xa0;: %1</translation>
    </message>
    <message>
        <source>The disk is full</source>
        <translation>Le disque est plein</translation>
    </message>
    <message>
        <source>Its copy on another volume may be the same file</source>
        <translation>Sa copie sur un autre volume est peut-être le même fichier</translation>
    </message>
</context>
<context>
    <name>tarvin::KeptList</name>
    <message>
        <source>Files to check</source>
        <translation>Fichiers à vérifier</translation>
    </message>
    <message>
        <source>Show the files to check</source>
        <translation>Afficher les fichiers à vérifier</translation>
    </message>
    <message>
        <source>Could Not Be Moved Back</source>
        <translation>Non remis en place</translation>
    </message>
    <message>
        <source>These files are in the Trash. No other copy of them may be left outside it.</source>
        <translation>Ces fichiers sont dans la corbeille. Il n’en reste peut-être aucune copie ailleurs.</translation>
    </message>
    <message>
        <source>Files to Check</source>
        <translation>Fichiers à vérifier</translation>
    </message>
    <message>
        <source>Files in the Trash may be last copies. The others were not moved and are still marked.</source>
        <translation>Dans la corbeille se trouvent peut-être les dernières copies. Le reste est en place et marqué.</translation>
    </message>
</context>
<context>
    <name>tarvin::ListPanel</name>
    <message>
        <source>These files were not moved to the Trash. They are still in the results and still marked.</source>
        <translation>Ces fichiers n’ont pas été mis à la corbeille. Ils restent marqués dans les résultats.</translation>
    </message>
    <message>
        <source>Copy List</source>
        <translation>Copier la liste</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Left Where They Are</source>
        <translation>Laissés en place</translation>
    </message>
    <message>
        <source>Files left where they are</source>
        <translation>Fichiers laissés en place</translation>
    </message>
    <message>
        <source>Could Not Be Read</source>
        <translation>Lecture impossible</translation>
    </message>
    <message>
        <source>These folders and files were left out of the scan. Copies in them were not found.</source>
        <translation>Ces dossiers et fichiers n’ont pas été analysés, ni les copies qu’ils contiennent.</translation>
    </message>
    <message>
        <source>Folders and files that could not be read</source>
        <translation>Dossiers et fichiers qui n’ont pas pu être lus</translation>
    </message>
</context>
<context>
    <name>tarvin::LocationScreen</name>
    <message>
        <source>Mark All</source>
        <translation>Tout marquer</translation>
    </message>
    <message>
        <source>Unmark All</source>
        <translation>Tout démarquer</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>Retirer de la liste</translation>
    </message>
    <message>
        <source>Add Photos</source>
        <translation>Ajouter des photos</translation>
    </message>
    <message>
        <source>Add Folders</source>
        <translation>Ajouter des dossiers</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Analyser</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Marquer</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Check the locations to scan. You can also drop folders here.</source>
        <translation>Cochez les emplacements à analyser. Vous pouvez aussi déposer des dossiers ici.</translation>
    </message>
    <message>
        <source>Locations</source>
        <translation>Emplacements</translation>
    </message>
    <message>
        <source>No locations yet. Add folders, or drop them here.</source>
        <translation>Aucun emplacement. Ajoutez des dossiers ou déposez-les ici.</translation>
    </message>
    <message>
        <source>Choose Locations</source>
        <translation>Choisir les emplacements</translation>
    </message>
</context>
<context>
    <name>tarvin::LocationTexts</name>
    <message>
        <source>File already added.</source>
        <translation>Fichier déjà ajouté.</translation>
    </message>
    <message>
        <source>Unsupported file.</source>
        <translation>Fichier non pris en charge.</translation>
    </message>
    <message>
        <source>Image already added.</source>
        <translation>Image déjà ajoutée.</translation>
    </message>
    <message>
        <source>Folder already added.</source>
        <translation>Dossier déjà ajouté.</translation>
    </message>
    <message>
        <source>Select Folders (Double click to go deeper)</source>
        <translation>Choisir des dossiers (double-clic pour ouvrir)</translation>
    </message>
    <message>
        <source>Select Drive</source>
        <translation>Choisir un disque</translation>
    </message>
    <message>
        <source>Scan</source>
        <comment>header of a column of check boxes</comment>
        <translation>Analyser</translation>
    </message>
    <message>
        <source>Select the check box and click &apos;Scan&apos; button to proceed.</source>
        <translation>Cochez la case et cliquez sur «&#xa0;Analyser&#xa0;» pour continuer.</translation>
    </message>
    <message>
        <source>No Folders.</source>
        <translation>Aucun dossier.</translation>
    </message>
    <message>
        <source>Scan this location: %1</source>
        <translation>Analyser cet emplacement&#xa0;: %1</translation>
    </message>
    <message>
        <source>Unmark</source>
        <translation>Démarquer</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Marquer</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Analyser</translation>
    </message>
</context>
<context>
    <name>tarvin::MainWindow</name>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>User Guide</source>
        <translation>Guide de l’utilisateur</translation>
    </message>
    <message>
        <source>Contact Support</source>
        <translation>Contacter l’assistance</translation>
    </message>
    <message>
        <source>Check for Updates...</source>
        <translation>Rechercher des mises à jour…</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>À propos de %1</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Non</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>Are you sure, you want to stop this process?</source>
        <translation>Voulez-vous vraiment arrêter cette opération&#x202f;?</translation>
    </message>
    <message>
        <source>All the files of same set cannot be selected</source>
        <translation>Tous les fichiers d’un groupe ne peuvent pas être marqués</translation>
    </message>
    <message>
        <source>Export Results…</source>
        <translation>Exporter les résultats…</translation>
    </message>
    <message>
        <source>Put Back Last Clean-up…</source>
        <translation>Annuler le dernier nettoyage…</translation>
    </message>
    <message>
        <source>Skip Hidden Files and Folders</source>
        <translation>Ignorer les fichiers et dossiers masqués</translation>
    </message>
    <message>
        <source>Remember Scans</source>
        <translation>Mémoriser les analyses</translation>
    </message>
    <message>
        <source>Scan in the Background</source>
        <translation>Analyser en arrière-plan</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Plus</translation>
    </message>
    <message>
        <source>Mark by Rule…</source>
        <translation>Marquer selon une règle…</translation>
    </message>
    <message>
        <source>Manage Exceptions…</source>
        <translation>Gérer les exceptions…</translation>
    </message>
</context>
<context>
    <name>tarvin::NotReadFiles</name>
    <message>
        <source>Trash folders are never scanned</source>
        <translation>Les corbeilles ne sont jamais analysées</translation>
    </message>
    <message>
        <source>1 folder could not be read.</source>
        <translation>1 dossier n’a pas pu être lu.</translation>
    </message>
    <message>
        <source>%1 folders could not be read.</source>
        <translation>%1 dossiers n’ont pas pu être lus.</translation>
    </message>
    <message>
        <source>1 file could not be read.</source>
        <translation>1 fichier n’a pas pu être lu.</translation>
    </message>
    <message>
        <source>%1 files could not be read.</source>
        <translation>%1 fichiers n’ont pas pu être lus.</translation>
    </message>
    <message>
        <source>1 folder and 1 file could not be read.</source>
        <translation>1 dossier et 1 fichier n’ont pas pu être lus.</translation>
    </message>
    <message>
        <source>1 folder and %1 files could not be read.</source>
        <translation>1 dossier et %1 fichiers n’ont pas pu être lus.</translation>
    </message>
    <message>
        <source>%1 folders and 1 file could not be read.</source>
        <translation>%1 dossiers et 1 fichier n’ont pas pu être lus.</translation>
    </message>
    <message>
        <source>%1 folders and %2 files could not be read.</source>
        <translation>%1 dossiers et %2 fichiers n’ont pas pu être lus.</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Permission refusée</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>Erreur d’entrée/sortie</translation>
    </message>
    <message>
        <source>Not there any more</source>
        <translation>N’existe plus</translation>
    </message>
    <message>
        <source>Stopped answering</source>
        <translation>Ne répond plus</translation>
    </message>
    <message>
        <source>Changed while it was read</source>
        <translation>Modifié pendant la lecture</translation>
    </message>
</context>
<context>
    <name>tarvin::OwnReasons</name>
    <message>
        <source>No longer in the Trash</source>
        <translation>N’est plus dans la corbeille</translation>
    </message>
    <message>
        <source>Something else has its name now</source>
        <translation>Autre chose porte désormais son nom</translation>
    </message>
    <message>
        <source>Its Trash is on another volume</source>
        <translation>Sa corbeille est sur un autre volume</translation>
    </message>
    <message>
        <source>This volume has no Trash</source>
        <translation>Ce volume n’a pas de corbeille</translation>
    </message>
    <message>
        <source>A folder of the Trash is a link</source>
        <translation>Un dossier de la corbeille est un lien</translation>
    </message>
    <message>
        <source>A part of the Trash is not a folder</source>
        <translation>Une partie de la corbeille n’est pas un dossier</translation>
    </message>
    <message>
        <source>The Trash belongs to another user</source>
        <translation>La corbeille appartient à quelqu’un d’autre</translation>
    </message>
    <message>
        <source>Other users can change the Trash</source>
        <translation>D’autres peuvent modifier la corbeille</translation>
    </message>
    <message>
        <source>There is no free name in the Trash</source>
        <translation>Aucun nom libre dans la corbeille</translation>
    </message>
    <message>
        <source>there is no home folder to keep the journal in</source>
        <translation>il n’y a pas de dossier personnel pour le journal</translation>
    </message>
    <message>
        <source>in use by another process</source>
        <translation>utilisé par un autre processus</translation>
    </message>
    <message>
        <source>a database of another program</source>
        <translation>la base de données d’un autre programme</translation>
    </message>
    <message>
        <source>database or disk is full</source>
        <translation>la base de données ou le disque est plein</translation>
    </message>
    <message>
        <source>written by a newer version of the program</source>
        <translation>écrit par une version plus récente du programme</translation>
    </message>
    <message>
        <source>is a link</source>
        <translation>est un lien</translation>
    </message>
    <message>
        <source>the file is damaged</source>
        <translation>le fichier est endommagé</translation>
    </message>
    <message>
        <source>the file was moved or replaced</source>
        <translation>le fichier a été déplacé ou remplacé</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>n’est pas un fichier ordinaire</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>le fichier est trop volumineux</translation>
    </message>
    <message>
        <source>not a property list</source>
        <translation>n’est pas une liste de propriétés</translation>
    </message>
    <message>
        <source>not a property list of totals</source>
        <translation>n’est pas une liste de propriétés avec des totaux</translation>
    </message>
    <message>
        <source>a link to a missing file</source>
        <translation>un lien vers un fichier absent</translation>
    </message>
</context>
<context>
    <name>tarvin::ProgressScreen</name>
    <message>
        <source>Searching for duplicate files</source>
        <translation>Recherche de fichiers en double</translation>
    </message>
    <message>
        <source>Searching for duplicate files...</source>
        <translation>Recherche de fichiers en double…</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Scan progress</source>
        <translation>Progression de l’analyse</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackList</name>
    <message>
        <source>No longer in the Trash</source>
        <translation>N’est plus dans la corbeille</translation>
    </message>
    <message>
        <source>Changed in the Trash</source>
        <translation>Modifié dans la corbeille</translation>
    </message>
    <message>
        <source>Drive not attached</source>
        <translation>Disque non connecté</translation>
    </message>
    <message>
        <source>Stopped before its turn</source>
        <translation>Arrêté avant son tour</translation>
    </message>
    <message>
        <source>The disk is full</source>
        <translation>Le disque est plein</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Permission refusée</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Prêt</translation>
    </message>
    <message>
        <source>Something else is there now: will be named &quot;%1&quot;</source>
        <translation>L’emplacement est occupé&#xa0;: sera nommé «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>The folder is gone: will be made again</source>
        <translation>Le dossier a disparu&#xa0;: sera recréé</translation>
    </message>
    <message>
        <source>%1, to %2, %3</source>
        <comment>name of a file, its folder, what becomes of it</comment>
        <translation>%1, vers %2, %3</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>et %1 de plus</translation>
    </message>
    <message>
        <source>File and folder it goes back to</source>
        <translation>Fichier et dossier de destination</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Its folder is a link now</source>
        <translation>Son dossier est maintenant un lien</translation>
    </message>
    <message>
        <source>Something else is where its folder was</source>
        <translation>Autre chose se trouve à la place de son dossier</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackPanel</name>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Put Back</source>
        <translation>Restaurer</translation>
    </message>
    <message>
        <source>Put Back Last Clean-up</source>
        <translation>Annuler le dernier nettoyage</translation>
    </message>
    <message>
        <source>Files of the last clean-up</source>
        <translation>Fichiers du dernier nettoyage</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackProgress</name>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Putting Back</source>
        <translation>Restauration</translation>
    </message>
    <message>
        <source>Putting files back, please wait...</source>
        <translation>Restauration des fichiers, veuillez patienter…</translation>
    </message>
    <message>
        <source>Put back progress</source>
        <translation>Progression de la restauration</translation>
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
        <translation>Annuler le dernier nettoyage</translation>
    </message>
    <message>
        <source>Files that could not be put back</source>
        <translation>Fichiers qui n’ont pas pu être restaurés</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackTexts</name>
    <message>
        <source>Put Back Last Clean-up</source>
        <translation>Annuler le dernier nettoyage</translation>
    </message>
    <message>
        <source>1 file (%1)</source>
        <translation>1 fichier (%1)</translation>
    </message>
    <message>
        <source>%1 files (%2)</source>
        <translation>%1 fichiers (%2)</translation>
    </message>
    <message>
        <source>Checking…</source>
        <translation>Vérification…</translation>
    </message>
    <message>
        <source>No files can be put back.</source>
        <translation>Aucun fichier ne peut être restauré.</translation>
    </message>
    <message>
        <source>1 file will be put back.</source>
        <translation>1 fichier sera restauré.</translation>
    </message>
    <message>
        <source>%1 files will be put back.</source>
        <translation>%1 fichiers seront restaurés.</translation>
    </message>
    <message>
        <source>1 file cannot be put back.</source>
        <translation>1 fichier ne peut pas être restauré.</translation>
    </message>
    <message>
        <source>%1 files cannot be put back.</source>
        <translation>%1 fichiers ne peuvent pas être restaurés.</translation>
    </message>
    <message>
        <source>%1 of %2 files. Nothing that is there now is replaced.</source>
        <translation>%1 fichiers sur %2. Rien de ce qui s’y trouve n’est remplacé.</translation>
    </message>
    <message>
        <source>Files Put Back: %1</source>
        <translation>Fichiers restaurés&#xa0;: %1</translation>
    </message>
    <message>
        <source>Size: %1</source>
        <translation>Taille&#xa0;: %1</translation>
    </message>
    <message>
        <source>1 file could not be put back:</source>
        <translation>1 fichier n’a pas pu être restauré&#xa0;:</translation>
    </message>
    <message>
        <source>%1 files could not be put back:</source>
        <translation>%1 fichiers n’ont pas pu être restaurés&#xa0;:</translation>
    </message>
    <message>
        <source>Scan again to see these files in the results.</source>
        <translation>Relancez l’analyse pour voir ces fichiers dans les résultats.</translation>
    </message>
    <message>
        <source>There is nothing to put back.</source>
        <translation>Il n’y a rien à restaurer.</translation>
    </message>
    <message>
        <source>Nothing has been cleaned up yet.</source>
        <translation>Rien n’a encore été nettoyé.</translation>
    </message>
    <message>
        <source>The last clean-up has been put back already.</source>
        <translation>Le dernier nettoyage est déjà annulé.</translation>
    </message>
    <message>
        <source>Its files are no longer in the Trash.</source>
        <translation>Ses fichiers ne sont plus dans la corbeille.</translation>
    </message>
    <message>
        <source>The last clean-up could not be put back.</source>
        <translation>Impossible d’annuler le dernier nettoyage.</translation>
    </message>
    <message>
        <source>Not all was done or written down: %1</source>
        <translation>Tout n’a pas été fait ou consigné&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>tarvin::RememberedScans</name>
    <message>
        <source>The remembered scans could not be removed.</source>
        <translation>Les analyses mémorisées n’ont pas pu être supprimées.</translation>
    </message>
    <message>
        <source>The remembered scans were damaged. This scan has read all files.</source>
        <translation>Les analyses mémorisées étaient endommagées. Cette analyse a lu tous les fichiers.</translation>
    </message>
    <message>
        <source>The remembered scans could not be used: %1</source>
        <translation>Les analyses mémorisées n’ont pas pu être utilisées&#xa0;: %1</translation>
    </message>
    <message>
        <source>This scan could not be remembered: %1</source>
        <translation>Cette analyse n’a pas pu être mémorisée&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultScreen</name>
    <message>
        <source>Duplicate Files</source>
        <translation>Fichiers en double</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Tous</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Vidéos</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Audio</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Documents</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Autres</translation>
    </message>
    <message>
        <source>Mark All</source>
        <translation>Tout marquer</translation>
    </message>
    <message>
        <source>Unmark All</source>
        <translation>Tout démarquer</translation>
    </message>
    <message>
        <source>Add to Exceptions</source>
        <translation>Ajouter aux exceptions</translation>
    </message>
    <message>
        <source>Remove Exceptions</source>
        <translation>Retirer les exceptions</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>Mettre à la corbeille</translation>
    </message>
    <message>
        <source>Delete Permanently</source>
        <translation>Supprimer définitivement</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Trier par</translation>
    </message>
    <message>
        <source>File order</source>
        <translation>Ordre des fichiers</translation>
    </message>
    <message>
        <source>Sort direction</source>
        <translation>Sens du tri</translation>
    </message>
    <message>
        <source>Files of the set</source>
        <translation>Fichiers du groupe</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
    </message>
    <message>
        <source>File properties</source>
        <translation>Propriétés du fichier</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Taille</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Created Date</source>
        <translation>Date de création</translation>
    </message>
    <message>
        <source>Modified Date</source>
        <translation>Date de modification</translation>
    </message>
    <message>
        <source>Dimension</source>
        <translation>Dimensions</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>Croissant</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>Décroissant</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Marquer</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
    <message>
        <source>Move Others to Trash</source>
        <translation>Mettre les autres à la corbeille</translation>
    </message>
    <message>
        <source>Mark All in Set</source>
        <translation>Marquer tout le groupe</translation>
    </message>
    <message>
        <source>Unmark All in Set</source>
        <translation>Démarquer tout le groupe</translation>
    </message>
    <message>
        <source>Get Info</source>
        <translation>Informations</translation>
    </message>
    <message>
        <source>Show…</source>
        <translation>Afficher…</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTable</name>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Emplacement</translation>
    </message>
    <message>
        <source>Set</source>
        <comment>header of a column with the numbers of sets</comment>
        <translation>Groupe</translation>
    </message>
    <message>
        <source>Mark</source>
        <comment>header of a column of check boxes</comment>
        <translation>Marquer</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTexts</name>
    <message>
        <source>Mark %1</source>
        <translation>Marquer %1</translation>
    </message>
    <message>
        <source>Partly marked</source>
        <translation>Partiellement marqué</translation>
    </message>
    <message>
        <source>Marked Duplicate Files: %1</source>
        <translation>Fichiers marqués&#xa0;: %1</translation>
    </message>
    <message>
        <source>Marked File Size: %1</source>
        <translation>Taille marquée&#xa0;: %1</translation>
    </message>
    <message>
        <source>All the files of same set cannot be selected</source>
        <translation>Tous les fichiers d’un groupe ne peuvent pas être marqués</translation>
    </message>
    <message>
        <source>Path: %1</source>
        <translation>Chemin&#xa0;: %1</translation>
    </message>
    <message>
        <source>Double Click On FIle To Open</source>
        <translation>Double-cliquez sur le fichier pour l’ouvrir</translation>
    </message>
    <message>
        <source>Sort by size</source>
        <translation>Trier par taille</translation>
    </message>
    <message>
        <source>Sort by name</source>
        <translation>Trier par nom</translation>
    </message>
    <message>
        <source>Sort by created date</source>
        <translation>Trier par date de création</translation>
    </message>
    <message>
        <source>Sort by modified date</source>
        <translation>Trier par date de modification</translation>
    </message>
    <message>
        <source>Sort by dimension</source>
        <translation>Trier par dimensions</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>Croissant</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>Décroissant</translation>
    </message>
    <message>
        <source>Duplicates Found</source>
        <translation>Doublons trouvés</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Review</source>
        <translation>Examiner</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Media: %1</source>
        <translation>Médias&#xa0;: %1</translation>
    </message>
    <message>
        <source>Documents: %1</source>
        <translation>Documents&#xa0;: %1</translation>
    </message>
    <message>
        <source>Others: %1</source>
        <translation>Autres&#xa0;: %1</translation>
    </message>
    <message>
        <source>Image Duplicates: %1</source>
        <translation>Images en double&#xa0;: %1</translation>
    </message>
    <message>
        <source>Video Duplicates: %1</source>
        <translation>Vidéos en double&#xa0;: %1</translation>
    </message>
    <message>
        <source>Audio Duplicates: %1</source>
        <translation>Fichiers audio en double&#xa0;: %1</translation>
    </message>
    <message>
        <source>Documents Duplicates: %1</source>
        <translation>Documents en double&#xa0;: %1</translation>
    </message>
    <message>
        <source>Other Duplicates: %1</source>
        <translation>Autres doublons&#xa0;: %1</translation>
    </message>
    <message>
        <source>Memory Occupied: %1</source>
        <translation>Espace occupé&#xa0;: %1</translation>
    </message>
    <message>
        <source>No Image Duplicates Found</source>
        <translation>Aucune image en double</translation>
    </message>
    <message>
        <source>No Video Duplicates Found</source>
        <translation>Aucune vidéo en double</translation>
    </message>
    <message>
        <source>No Audio Duplicates Found</source>
        <translation>Aucun fichier audio en double</translation>
    </message>
    <message>
        <source>No Documents Duplicates Found</source>
        <translation>Aucun document en double</translation>
    </message>
    <message>
        <source>No Other Duplicates Found</source>
        <translation>Aucun autre doublon</translation>
    </message>
    <message>
        <source>Please select any file to delete.</source>
        <translation>Veuillez marquer un fichier à supprimer.</translation>
    </message>
    <message>
        <source>Deleting files, please wait...</source>
        <translation>Suppression des fichiers, veuillez patienter…</translation>
    </message>
    <message>
        <source>Are you sure, you want to stop this process?</source>
        <translation>Voulez-vous vraiment arrêter cette opération&#x202f;?</translation>
    </message>
    <message>
        <source>Duplicates Cleaned: %1</source>
        <translation>Doublons nettoyés&#xa0;: %1</translation>
    </message>
    <message>
        <source>Space Regained: %1 </source>
        <translation>Espace récupéré&#xa0;: %1 </translation>
    </message>
    <message>
        <source>The selected files will be excluded from all future scans. Press &quot;OK&quot; to exclude.</source>
        <translation>Les fichiers sélectionnés seront exclus de toutes les analyses à venir. Cliquez sur «&#xa0;OK&#xa0;» pour les exclure.</translation>
    </message>
    <message>
        <source>The selected similar photos will be excluded from all future scans. Press &quot;Ok&quot; to exclude.</source>
        <translation>Les photos similaires sélectionnées seront exclues de toutes les analyses à venir. Cliquez sur «&#xa0;OK&#xa0;» pour les exclure.</translation>
    </message>
    <message>
        <source>
Successfully added %1 files to exceptions.</source>
        <translation>
Fichiers ajoutés aux exceptions&#xa0;: %1.</translation>
    </message>
    <message>
        <source>Are you sure, you want to remove all exceptions?</source>
        <translation>Voulez-vous vraiment retirer toutes les exceptions&#x202f;?</translation>
    </message>
    <message>
        <source>
All exceptions has been removed.</source>
        <translation>
Toutes les exceptions ont été retirées.</translation>
    </message>
    <message>
        <source>YES</source>
        <translation>OUI</translation>
    </message>
    <message>
        <source>NO</source>
        <translation>NON</translation>
    </message>
    <message>
        <source>The clean-up could not begin: its moves cannot be written down.</source>
        <translation>Le nettoyage n’a pas pu commencer&#xa0;: ses déplacements ne peuvent pas être consignés.</translation>
    </message>
    <message>
        <source>The file was set aside; the next clean-up begins a new one.</source>
        <translation>Le fichier a été mis de côté&#x202f;; le prochain nettoyage en commencera un nouveau.</translation>
    </message>
    <message>
        <source>1 file was left where it is.</source>
        <translation>1 fichier est resté en place.</translation>
    </message>
    <message>
        <source>%1 files were left where they are.</source>
        <translation>%1 fichiers sont restés en place.</translation>
    </message>
    <message>
        <source>1 file in the Trash may be the last copy.</source>
        <translation>Corbeille&#xa0;: 1 copie peut-être unique.</translation>
    </message>
    <message>
        <source>%1 files in the Trash may be last copies.</source>
        <translation>Corbeille&#xa0;: %1 copies peut-être uniques.</translation>
    </message>
    <message>
        <source>Left: %1. Maybe last copies: %2.</source>
        <translation>Laissés&#xa0;: %1. Peut-être uniques&#xa0;: %2.</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; will be excluded from all future scans. Press &quot;OK&quot; to exclude.</source>
        <translation>Le fichier «&#xa0;%1&#xa0;» sera exclu de toutes les analyses à venir. Cliquez sur «&#xa0;OK&#xa0;» pour l’exclure.</translation>
    </message>
    <message>
        <source>The file is not there any more.</source>
        <translation>Le fichier n’existe plus.</translation>
    </message>
    <message>
        <source>1 file, %1</source>
        <translation>1 fichier, %1</translation>
    </message>
    <message>
        <source>%1 files, %2 each</source>
        <translation>%1 fichiers de %2 chacun</translation>
    </message>
    <message>
        <source>%1 can be regained</source>
        <translation>%1 à récupérer</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTreeView</name>
    <message>
        <source>Extensions and sets</source>
        <translation>Extensions et groupes</translation>
    </message>
</context>
<context>
    <name>tarvin::RulePanel</name>
    <message>
        <source>The first found</source>
        <translation>Le premier trouvé</translation>
    </message>
    <message>
        <source>The newest</source>
        <translation>Le plus récent</translation>
    </message>
    <message>
        <source>The oldest</source>
        <translation>Le plus ancien</translation>
    </message>
    <message>
        <source>The shortest path</source>
        <translation>Le chemin le plus court</translation>
    </message>
    <message>
        <source>The longest path</source>
        <translation>Le chemin le plus long</translation>
    </message>
    <message>
        <source>The copy in a preferred folder</source>
        <translation>La copie d’un dossier préféré</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Ajouter…</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Retirer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Marquer</translation>
    </message>
    <message>
        <source>Mark by Rule</source>
        <translation>Marquer selon une règle</translation>
    </message>
    <message>
        <source>Keep in each set:</source>
        <translation>Garder dans chaque groupe&#xa0;:</translation>
    </message>
    <message>
        <source>Never mark files in:</source>
        <translation>Ne jamais marquer dans&#xa0;:</translation>
    </message>
    <message>
        <source>Add the folders whose copies stay.</source>
        <translation>Ajoutez les dossiers à préserver.</translation>
    </message>
    <message>
        <source>No folders</source>
        <translation>Aucun dossier</translation>
    </message>
    <message>
        <source>Keep in each set</source>
        <translation>Garder dans chaque groupe</translation>
    </message>
    <message>
        <source>Preferred folders</source>
        <translation>Dossiers préférés</translation>
    </message>
    <message>
        <source>Never mark files in</source>
        <translation>Ne jamais marquer dans</translation>
    </message>
    <message>
        <source>Add preferred folder</source>
        <translation>Ajouter un dossier préféré</translation>
    </message>
    <message>
        <source>Remove preferred folder</source>
        <translation>Retirer le dossier préféré</translation>
    </message>
    <message>
        <source>Add protected folder</source>
        <translation>Ajouter un dossier protégé</translation>
    </message>
    <message>
        <source>Remove protected folder</source>
        <translation>Retirer le dossier protégé</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Monter</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Descendre</translation>
    </message>
</context>
<context>
    <name>tarvin::RuleTexts</name>
    <message>
        <source>No files will be marked.</source>
        <translation>Aucun fichier ne sera marqué.</translation>
    </message>
    <message>
        <source>1 file (%1) will be marked in 1 set.</source>
        <translation>1 fichier (%1) sera marqué dans 1 groupe.</translation>
    </message>
    <message>
        <source>%1 files (%2) will be marked in 1 set.</source>
        <translation>%1 fichiers (%2) seront marqués dans 1 groupe.</translation>
    </message>
    <message>
        <source>%1 files (%2) will be marked in %3 sets.</source>
        <translation>%1 fichiers (%2) seront marqués dans %3 groupes.</translation>
    </message>
    <message>
        <source>1 set has no copy that may be marked.</source>
        <translation>1 groupe n’a aucune copie à marquer.</translation>
    </message>
    <message>
        <source>%1 sets have no copy that may be marked.</source>
        <translation>%1 groupes n’ont aucune copie à marquer.</translation>
    </message>
    <message>
        <source>Earlier marks are replaced.</source>
        <translation>Les marques précédentes sont remplacées.</translation>
    </message>
</context>
<context>
    <name>tarvin::ScanScreenTexts</name>
    <message>
        <source>Collecting Files...</source>
        <translation>Collecte des fichiers…</translation>
    </message>
    <message>
        <source>Collecting Files: %1</source>
        <translation>Collecte des fichiers&#xa0;: %1</translation>
    </message>
    <message>
        <source>Processing File: %1</source>
        <translation>Comparaison du fichier&#xa0;: %1</translation>
    </message>
    <message>
        <source>Waiting for: %1</source>
        <translation>En attente de&#xa0;: %1</translation>
    </message>
    <message>
        <source>Elapsed Time: %1</source>
        <translation>Temps écoulé&#xa0;: %1</translation>
    </message>
    <message>
        <source>Searching for duplicate files...</source>
        <translation>Recherche de fichiers en double…</translation>
    </message>
    <message>
        <source>Searching for duplicate files</source>
        <translation>Recherche de fichiers en double</translation>
    </message>
    <message>
        <source>No duplicates File found</source>
        <translation>Aucun fichier en double trouvé</translation>
    </message>
    <message>
        <source>There was not enough memory to finish the scan. The result is incomplete.</source>
        <translation>La mémoire n’a pas suffi pour terminer l’analyse. Le résultat est incomplet.</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Reprendre</translation>
    </message>
    <message>
        <source>%1 of %2 compared</source>
        <translation>%1 sur %2 comparés</translation>
    </message>
    <message>
        <source>less than a minute left</source>
        <translation>moins d’une minute restante</translation>
    </message>
    <message>
        <source>about %1 hours left</source>
        <translation>environ %1 heures restantes</translation>
    </message>
    <message>
        <source>about 1 minute left</source>
        <translation>environ 1 minute restante</translation>
    </message>
    <message>
        <source>about %1 minutes left</source>
        <translation>environ %1 minutes restantes</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pause</translation>
    </message>
    <message>
        <source>Stopping…</source>
        <translation>Arrêt en cours…</translation>
    </message>
    <message>
        <source>Waiting for the file in hand.</source>
        <translation>En attente du fichier en cours.</translation>
    </message>
</context>
<context>
    <name>tarvin::Screen</name>
    <message>
        <source>Home</source>
        <translation>Accueil</translation>
    </message>
</context>
<context>
    <name>tarvin::SearchField</name>
    <message>
        <source>Clear search</source>
        <translation>Effacer la recherche</translation>
    </message>
</context>
<context>
    <name>tarvin::ShownNumbers</name>
    <message>
        <source>en</source>
        <comment>the code of the language of these texts</comment>
        <translation>fr</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>date, time</comment>
        <translation>%1 à %2</translation>
    </message>
</context>
<context>
    <name>tarvin::UpdateCheck</name>
    <message>
        <source>Your application is up to date</source>
        <translation>Votre application est à jour</translation>
    </message>
    <message>
        <source>No update required.</source>
        <translation>Aucune mise à jour nécessaire.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>New update available (Tarvin Duplicate File Remover %1)</source>
        <translation>Nouvelle version disponible (Tarvin Duplicate File Remover %1)</translation>
    </message>
    <message>
        <source>Would you like to update this version?</source>
        <translation>Voulez-vous mettre à jour cette version&#x202f;?</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Mettre à jour</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>Me le rappeler plus tard</translation>
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
        <translation>Les photos occupent la plus grande partie de l’espace de votre appareil. Beaucoup sont en double. Nettoyez les photos similaires pour récupérer de l’espace.</translation>
    </message>
    <message>
        <source>Search Exact</source>
        <translation>Recherche exacte</translation>
    </message>
    <message>
        <source>Search photos that are similar enough</source>
        <translation>Chercher des photos assez semblables</translation>
    </message>
    <message>
        <source>to be one and the same file.</source>
        <translation>pour être un seul et même fichier.</translation>
    </message>
    <message>
        <source>Search Similar</source>
        <translation>Recherche de similaires</translation>
    </message>
    <message>
        <source>Search photos that are similar</source>
        <translation>Chercher des photos similaires</translation>
    </message>
</context>
</TS>
