<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>tarvin::AboutPanel</name>
    <message>
        <source>Finds files with identical content, groups them into sets and moves the copies you choose to the Trash.</source>
        <translation>Encuentra archivos con contenido idéntico, los reúne en grupos y mueve a la papelera las copias que elija.</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
    <message>
        <source>© Tarvin Software. All rights reserved.</source>
        <translation>© Tarvin Software. Todos los derechos reservados.</translation>
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
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>tarvin::AppDelegate</name>
    <message>
        <source>A operation is in progress. Please stop the current process.</source>
        <translation>Hay una operación en curso. Deténgala primero.</translation>
    </message>
    <message>
        <source>To scan other folders, return to the start screen first.</source>
        <translation>Para analizar otras carpetas, vuelva primero al inicio.</translation>
    </message>
</context>
<context>
    <name>tarvin::CloseButton</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>tarvin::DeletionPanel</name>
    <message>
        <source>Pause</source>
        <translation>Pausar</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Moving to the Trash</source>
        <translation>Mover a la papelera</translation>
    </message>
    <message>
        <source>Deleting files, please wait...</source>
        <translation>Eliminando archivos, espere…</translation>
    </message>
    <message>
        <source>Deletion progress</source>
        <translation>Progreso de la eliminación</translation>
    </message>
    <message>
        <source>Marked files go to the Trash. You can put them back from there.</source>
        <translation>Los archivos marcados van a la papelera. Desde allí puede restaurarlos.</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionListPanel</name>
    <message>
        <source>No exceptions</source>
        <translation>No hay excepciones</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
    <message>
        <source>Remove All Missing</source>
        <translation>Quitar inexistentes</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Files that you add to the exceptions are skipped by every later scan.</source>
        <translation>Los análisis posteriores omiten los archivos que añada a las excepciones.</translation>
    </message>
    <message>
        <source>Exceptions</source>
        <translation>Excepciones</translation>
    </message>
    <message>
        <source>Search names and folders</source>
        <translation>Buscar nombres y carpetas</translation>
    </message>
    <message>
        <source>Search exceptions</source>
        <translation>Buscar en las excepciones</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionListTexts</name>
    <message>
        <source>1 file</source>
        <translation>1 archivo</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1 archivos</translation>
    </message>
    <message>
        <source>1 file, not there any more</source>
        <translation>1 archivo, ya no existe</translation>
    </message>
    <message>
        <source>%1 files, %2 not there any more</source>
        <translation>%1 archivos, %2 ya no existen</translation>
    </message>
    <message>
        <source>%1 of 1 file</source>
        <translation>%1 de 1 archivo</translation>
    </message>
    <message>
        <source>%1 of %2 files</source>
        <translation>%1 de %2 archivos</translation>
    </message>
    <message>
        <source>No exception matches &quot;%1&quot;.</source>
        <translation>Ninguna excepción coincide con «%1».</translation>
    </message>
    <message>
        <source>Exceptions</source>
        <translation>Excepciones</translation>
    </message>
    <message>
        <source>The exceptions could not be saved.</source>
        <translation>No se pudieron guardar las excepciones.</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionPanel</name>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Add to Exceptions</source>
        <translation>Añadir a excepciones</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionRows</name>
    <message>
        <source>Not there any more</source>
        <translation>Ya no existe</translation>
    </message>
    <message>
        <source>Drive not attached</source>
        <translation>Unidad no conectada</translation>
    </message>
    <message>
        <source>%1, %2, not there any more</source>
        <comment>name of a file, its folder</comment>
        <translation>%1, %2, ya no existe</translation>
    </message>
    <message>
        <source>%1, %2, drive not attached</source>
        <comment>name of a file, its folder</comment>
        <translation>%1, %2, unidad no conectada</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>name of a file, its folder</comment>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Carpeta</translation>
    </message>
</context>
<context>
    <name>tarvin::ExportTexts</name>
    <message>
        <source>Export Results</source>
        <translation>Exportar resultados</translation>
    </message>
    <message>
        <source>Duplicate files %1</source>
        <translation>Archivos duplicados %1</translation>
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
        <translation>Texto</translation>
    </message>
    <message>
        <source>1 set exported.</source>
        <translation>1 grupo exportado.</translation>
    </message>
    <message>
        <source>%1 sets exported.</source>
        <translation>%1 grupos exportados.</translation>
    </message>
    <message>
        <source>The results could not be exported.</source>
        <translation>No se pudieron exportar los resultados.</translation>
    </message>
    <message>
        <source>Exporting the results…</source>
        <translation>Exportando los resultados…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>tarvin::FileActions</name>
    <message>
        <source>Actions for %1</source>
        <comment>a menu; %1 is a file&apos;s name</comment>
        <translation>Acciones para %1</translation>
    </message>
</context>
<context>
    <name>tarvin::FileDialogs</name>
    <message>
        <source>Add Folders</source>
        <translation>Añadir carpetas</translation>
    </message>
    <message>
        <source>Add Photos</source>
        <translation>Añadir fotos</translation>
    </message>
    <message>
        <source>Photos</source>
        <translation>Fotos</translation>
    </message>
    <message>
        <source>Only photos of these types can be added: %1.</source>
        <translation>Solo se pueden añadir fotos de estos tipos: %1.</translation>
    </message>
    <message>
        <source>Folders not shown here can be dropped onto the list.</source>
        <translation>Las carpetas que no aparecen aquí se pueden arrastrar a la lista.</translation>
    </message>
    <message>
        <source>Photos not shown here can be dropped onto the list.</source>
        <translation>Las fotos que no aparecen aquí se pueden arrastrar a la lista.</translation>
    </message>
    <message>
        <source>Some of the chosen items cannot be added here. Please drop them onto the list.</source>
        <translation>Algunos de los elementos elegidos no se pueden añadir aquí. Arrástrelos a la lista.</translation>
    </message>
    <message>
        <source>%1 already exists. Do you want to replace it?</source>
        <translation>%1 ya existe. ¿Desea reemplazarlo?</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Reemplazar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Some of the chosen items cannot be added here.</source>
        <translation>Algunos de los elementos elegidos no se pueden añadir aquí.</translation>
    </message>
</context>
<context>
    <name>tarvin::FileMenu</name>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Open Containing Folder</source>
        <translation>Abrir la carpeta contenedora</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Copiar ruta</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>Conservar este</translation>
    </message>
    <message>
        <source>Mark All in This Folder</source>
        <translation>Marcar todo en esta carpeta</translation>
    </message>
    <message>
        <source>Add to Exceptions…</source>
        <translation>Añadir a excepciones…</translation>
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
Tamaño          : %2
Dimensiones  : %3
Creado           : %4
Modificado     : %5</translation>
    </message>
    <message>
        <source> %1
Size                       : %2
Created Date        : %3
Modified Date       : %4</source>
        <translation> %1
Tamaño       : %2
Creado        : %3
Modificado  : %4</translation>
    </message>
</context>
<context>
    <name>tarvin::FileReasons</name>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Ubicación</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Motivo</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>y %1 más</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Carpeta</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Archivo</translation>
    </message>
</context>
<context>
    <name>tarvin::Help</name>
    <message>
        <source>Version %1</source>
        <translation>Versión %1</translation>
    </message>
</context>
<context>
    <name>tarvin::HomeScreen</name>
    <message>
        <source>Find duplicate files</source>
        <translation>Buscar duplicados</translation>
    </message>
    <message>
        <source>Choose where to look. Identical files are grouped into sets, so you can review them and move the copies to the Trash.</source>
        <translation>Elija dónde buscar. Los archivos idénticos se reúnen en grupos para que pueda revisarlos y mover las copias a la papelera.</translation>
    </message>
    <message>
        <source>Scan Drives</source>
        <translation>Analizar unidades</translation>
    </message>
    <message>
        <source>Scan Folders</source>
        <translation>Analizar carpetas</translation>
    </message>
</context>
<context>
    <name>tarvin::HomeTexts</name>
    <message>
        <source>Files cleaned so far: %1 (%2)</source>
        <translation>Archivos limpiados hasta ahora: %1 (%2)</translation>
    </message>
</context>
<context>
    <name>tarvin::InformationPanel</name>
    <message>
        <source>Review</source>
        <translation>Revisar</translation>
    </message>
    <message>
        <source>Show…</source>
        <translation>Mostrar…</translation>
    </message>
    <message>
        <source>Show the files that were left where they are</source>
        <translation>Mostrar los archivos que se dejaron en su sitio</translation>
    </message>
    <message>
        <source>Show what was not read…</source>
        <translation>Mostrar lo no leído…</translation>
    </message>
</context>
<context>
    <name>tarvin::KeptFiles</name>
    <message>
        <source>Not there any more</source>
        <translation>Ya no existe</translation>
    </message>
    <message>
        <source>Changed since the scan</source>
        <translation>Ha cambiado desde el análisis</translation>
    </message>
    <message>
        <source>No other copy is left</source>
        <translation>No queda ninguna otra copia</translation>
    </message>
    <message>
        <source>Stopped before its turn</source>
        <translation>Detenido antes de su turno</translation>
    </message>
    <message>
        <source>The Trash of this volume is full</source>
        <translation>La papelera de este volumen está llena</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Permiso denegado</translation>
    </message>
    <message>
        <source>Its move was not written down before</source>
        <translation>El movimiento no se registró antes</translation>
    </message>
    <message>
        <source>In the Trash, not moved back: %1</source>
        <translation>En la papelera, no devuelto: %1</translation>
    </message>
    <message>
        <source>The disk is full</source>
        <translation>El disco está lleno</translation>
    </message>
    <message>
        <source>Its copy on another volume may be the same file</source>
        <translation>Su copia en otro volumen puede ser el mismo archivo</translation>
    </message>
</context>
<context>
    <name>tarvin::KeptList</name>
    <message>
        <source>Files to check</source>
        <translation>Archivos que revisar</translation>
    </message>
    <message>
        <source>Show the files to check</source>
        <translation>Mostrar los archivos que revisar</translation>
    </message>
    <message>
        <source>Could Not Be Moved Back</source>
        <translation>No se pudieron devolver</translation>
    </message>
    <message>
        <source>These files are in the Trash. No other copy of them may be left outside it.</source>
        <translation>Estos archivos están en la papelera. Quizá no quede ninguna copia fuera de ella.</translation>
    </message>
    <message>
        <source>Files to Check</source>
        <translation>Archivos que revisar</translation>
    </message>
    <message>
        <source>Files in the Trash may be last copies. The others were not moved and are still marked.</source>
        <translation>En la papelera puede haber últimas copias. Los demás no se movieron y siguen marcados.</translation>
    </message>
</context>
<context>
    <name>tarvin::ListPanel</name>
    <message>
        <source>These files were not moved to the Trash. They are still in the results and still marked.</source>
        <translation>Estos archivos no se movieron a la papelera. Siguen marcados en los resultados.</translation>
    </message>
    <message>
        <source>Copy List</source>
        <translation>Copiar lista</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Left Where They Are</source>
        <translation>Dejados en su sitio</translation>
    </message>
    <message>
        <source>Files left where they are</source>
        <translation>Archivos dejados en su sitio</translation>
    </message>
    <message>
        <source>Could Not Be Read</source>
        <translation>No se pudieron leer</translation>
    </message>
    <message>
        <source>These folders and files were left out of the scan. Copies in them were not found.</source>
        <translation>Estas carpetas y archivos no se analizaron, ni las copias que contienen.</translation>
    </message>
    <message>
        <source>Folders and files that could not be read</source>
        <translation>Carpetas y archivos que no se pudieron leer</translation>
    </message>
</context>
<context>
    <name>tarvin::LocationScreen</name>
    <message>
        <source>Mark All</source>
        <translation>Marcar todo</translation>
    </message>
    <message>
        <source>Unmark All</source>
        <translation>Desmarcar todo</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>Quitar de la lista</translation>
    </message>
    <message>
        <source>Add Photos</source>
        <translation>Añadir fotos</translation>
    </message>
    <message>
        <source>Add Folders</source>
        <translation>Añadir carpetas</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Analizar</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Marcar</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Siguiente</translation>
    </message>
    <message>
        <source>Check the locations to scan. You can also drop folders here.</source>
        <translation>Marque las ubicaciones que analizar. También puede arrastrar carpetas aquí.</translation>
    </message>
    <message>
        <source>Locations</source>
        <translation>Ubicaciones</translation>
    </message>
    <message>
        <source>No locations yet. Add folders, or drop them here.</source>
        <translation>Aún no hay ubicaciones. Añada carpetas o arrástrelas aquí.</translation>
    </message>
    <message>
        <source>Choose Locations</source>
        <translation>Elegir ubicaciones</translation>
    </message>
</context>
<context>
    <name>tarvin::LocationTexts</name>
    <message>
        <source>File already added.</source>
        <translation>El archivo ya está añadido.</translation>
    </message>
    <message>
        <source>Unsupported file.</source>
        <translation>Archivo no compatible.</translation>
    </message>
    <message>
        <source>Image already added.</source>
        <translation>La imagen ya está añadida.</translation>
    </message>
    <message>
        <source>Folder already added.</source>
        <translation>La carpeta ya está añadida.</translation>
    </message>
    <message>
        <source>Select Folders (Double click to go deeper)</source>
        <translation>Elegir carpetas (doble clic para abrir)</translation>
    </message>
    <message>
        <source>Select Drive</source>
        <translation>Elegir unidad</translation>
    </message>
    <message>
        <source>Scan</source>
        <comment>header of a column of check boxes</comment>
        <translation>Analizar</translation>
    </message>
    <message>
        <source>Select the check box and click &apos;Scan&apos; button to proceed.</source>
        <translation>Marque la casilla y pulse «Analizar» para continuar.</translation>
    </message>
    <message>
        <source>No Folders.</source>
        <translation>No hay carpetas.</translation>
    </message>
    <message>
        <source>Scan this location: %1</source>
        <translation>Analizar esta ubicación: %1</translation>
    </message>
    <message>
        <source>Unmark</source>
        <translation>Desmarcar</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Marcar</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Analizar</translation>
    </message>
</context>
<context>
    <name>tarvin::MainWindow</name>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>User Guide</source>
        <translation>Guía del usuario</translation>
    </message>
    <message>
        <source>Contact Support</source>
        <translation>Contactar con soporte</translation>
    </message>
    <message>
        <source>Check for Updates...</source>
        <translation>Buscar actualizaciones…</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>Acerca de %1</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Sí</translation>
    </message>
    <message>
        <source>Are you sure, you want to stop this process?</source>
        <translation>¿Seguro que desea detener esta operación?</translation>
    </message>
    <message>
        <source>All the files of same set cannot be selected</source>
        <translation>No se pueden marcar todos los archivos de un grupo</translation>
    </message>
    <message>
        <source>Export Results…</source>
        <translation>Exportar resultados…</translation>
    </message>
    <message>
        <source>Put Back Last Clean-up…</source>
        <translation>Deshacer la última limpieza…</translation>
    </message>
    <message>
        <source>Skip Hidden Files and Folders</source>
        <translation>Omitir archivos y carpetas ocultos</translation>
    </message>
    <message>
        <source>Remember Scans</source>
        <translation>Recordar los análisis</translation>
    </message>
    <message>
        <source>Scan in the Background</source>
        <translation>Analizar en segundo plano</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Más</translation>
    </message>
    <message>
        <source>Mark by Rule…</source>
        <translation>Marcar por regla…</translation>
    </message>
    <message>
        <source>Manage Exceptions…</source>
        <translation>Gestionar excepciones…</translation>
    </message>
</context>
<context>
    <name>tarvin::NotReadFiles</name>
    <message>
        <source>Trash folders are never scanned</source>
        <translation>Las papeleras nunca se analizan</translation>
    </message>
    <message>
        <source>1 folder could not be read.</source>
        <translation>No se pudo leer 1 carpeta.</translation>
    </message>
    <message>
        <source>%1 folders could not be read.</source>
        <translation>No se pudieron leer %1 carpetas.</translation>
    </message>
    <message>
        <source>1 file could not be read.</source>
        <translation>No se pudo leer 1 archivo.</translation>
    </message>
    <message>
        <source>%1 files could not be read.</source>
        <translation>No se pudieron leer %1 archivos.</translation>
    </message>
    <message>
        <source>1 folder and 1 file could not be read.</source>
        <translation>No se pudieron leer 1 carpeta y 1 archivo.</translation>
    </message>
    <message>
        <source>1 folder and %1 files could not be read.</source>
        <translation>No se pudieron leer 1 carpeta y %1 archivos.</translation>
    </message>
    <message>
        <source>%1 folders and 1 file could not be read.</source>
        <translation>No se pudieron leer %1 carpetas y 1 archivo.</translation>
    </message>
    <message>
        <source>%1 folders and %2 files could not be read.</source>
        <translation>No se pudieron leer %1 carpetas y %2 archivos.</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Permiso denegado</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>Error de entrada/salida</translation>
    </message>
    <message>
        <source>Not there any more</source>
        <translation>Ya no existe</translation>
    </message>
    <message>
        <source>Stopped answering</source>
        <translation>Dejó de responder</translation>
    </message>
    <message>
        <source>Changed while it was read</source>
        <translation>Cambió mientras se leía</translation>
    </message>
</context>
<context>
    <name>tarvin::OwnReasons</name>
    <message>
        <source>No longer in the Trash</source>
        <translation>Ya no está en la papelera</translation>
    </message>
    <message>
        <source>Something else has its name now</source>
        <translation>Ahora otra cosa tiene su nombre</translation>
    </message>
    <message>
        <source>Its Trash is on another volume</source>
        <translation>Su papelera está en otro volumen</translation>
    </message>
    <message>
        <source>This volume has no Trash</source>
        <translation>Este volumen no tiene papelera</translation>
    </message>
    <message>
        <source>A folder of the Trash is a link</source>
        <translation>Una carpeta de la papelera es un enlace</translation>
    </message>
    <message>
        <source>A part of the Trash is not a folder</source>
        <translation>Una parte de la papelera no es una carpeta</translation>
    </message>
    <message>
        <source>The Trash belongs to another user</source>
        <translation>La papelera es de otro usuario</translation>
    </message>
    <message>
        <source>Other users can change the Trash</source>
        <translation>Otros usuarios pueden cambiar la papelera</translation>
    </message>
    <message>
        <source>There is no free name in the Trash</source>
        <translation>No hay nombres libres en la papelera</translation>
    </message>
    <message>
        <source>there is no home folder to keep the journal in</source>
        <translation>no hay carpeta personal donde guardar el registro</translation>
    </message>
    <message>
        <source>in use by another process</source>
        <translation>en uso por otro proceso</translation>
    </message>
    <message>
        <source>a database of another program</source>
        <translation>una base de datos de otro programa</translation>
    </message>
    <message>
        <source>database or disk is full</source>
        <translation>la base de datos o el disco están llenos</translation>
    </message>
    <message>
        <source>written by a newer version of the program</source>
        <translation>escrito por una versión más reciente del programa</translation>
    </message>
    <message>
        <source>is a link</source>
        <translation>es un enlace</translation>
    </message>
    <message>
        <source>the file is damaged</source>
        <translation>el archivo está dañado</translation>
    </message>
    <message>
        <source>the file was moved or replaced</source>
        <translation>el archivo se movió o se reemplazó</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>no es un archivo normal</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>el archivo es demasiado grande</translation>
    </message>
    <message>
        <source>not a property list</source>
        <translation>no es una lista de propiedades</translation>
    </message>
    <message>
        <source>not a property list of totals</source>
        <translation>no es una lista de propiedades con totales</translation>
    </message>
    <message>
        <source>a link to a missing file</source>
        <translation>un enlace a un archivo que no existe</translation>
    </message>
</context>
<context>
    <name>tarvin::ProgressScreen</name>
    <message>
        <source>Searching for duplicate files</source>
        <translation>Buscando archivos duplicados</translation>
    </message>
    <message>
        <source>Searching for duplicate files...</source>
        <translation>Buscando archivos duplicados…</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausar</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Scan progress</source>
        <translation>Progreso del análisis</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackList</name>
    <message>
        <source>No longer in the Trash</source>
        <translation>Ya no está en la papelera</translation>
    </message>
    <message>
        <source>Changed in the Trash</source>
        <translation>Ha cambiado en la papelera</translation>
    </message>
    <message>
        <source>Drive not attached</source>
        <translation>Unidad no conectada</translation>
    </message>
    <message>
        <source>Stopped before its turn</source>
        <translation>Detenido antes de su turno</translation>
    </message>
    <message>
        <source>The disk is full</source>
        <translation>El disco está lleno</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Permiso denegado</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Listo</translation>
    </message>
    <message>
        <source>Something else is there now: will be named &quot;%1&quot;</source>
        <translation>El sitio está ocupado: se llamará «%1»</translation>
    </message>
    <message>
        <source>The folder is gone: will be made again</source>
        <translation>La carpeta ya no existe: se creará de nuevo</translation>
    </message>
    <message>
        <source>%1, to %2, %3</source>
        <comment>name of a file, its folder, what becomes of it</comment>
        <translation>%1, a %2, %3</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>y %1 más</translation>
    </message>
    <message>
        <source>File and folder it goes back to</source>
        <translation>Archivo y carpeta a la que vuelve</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Estado</translation>
    </message>
    <message>
        <source>Its folder is a link now</source>
        <translation>Su carpeta es ahora un enlace</translation>
    </message>
    <message>
        <source>Something else is where its folder was</source>
        <translation>Hay otra cosa donde estaba su carpeta</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackPanel</name>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Put Back</source>
        <translation>Restaurar</translation>
    </message>
    <message>
        <source>Put Back Last Clean-up</source>
        <translation>Deshacer la última limpieza</translation>
    </message>
    <message>
        <source>Files of the last clean-up</source>
        <translation>Archivos de la última limpieza</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackProgress</name>
    <message>
        <source>Stop</source>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Putting Back</source>
        <translation>Restauración</translation>
    </message>
    <message>
        <source>Putting files back, please wait...</source>
        <translation>Restaurando archivos, espere…</translation>
    </message>
    <message>
        <source>Put back progress</source>
        <translation>Progreso de la restauración</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackReport</name>
    <message>
        <source>Ok</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Put Back Last Clean-up</source>
        <translation>Deshacer la última limpieza</translation>
    </message>
    <message>
        <source>Files that could not be put back</source>
        <translation>Archivos que no se pudieron restaurar</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackTexts</name>
    <message>
        <source>Put Back Last Clean-up</source>
        <translation>Deshacer la última limpieza</translation>
    </message>
    <message>
        <source>1 file (%1)</source>
        <translation>1 archivo (%1)</translation>
    </message>
    <message>
        <source>%1 files (%2)</source>
        <translation>%1 archivos (%2)</translation>
    </message>
    <message>
        <source>Checking…</source>
        <translation>Comprobando…</translation>
    </message>
    <message>
        <source>No files can be put back.</source>
        <translation>No se puede restaurar ningún archivo.</translation>
    </message>
    <message>
        <source>1 file will be put back.</source>
        <translation>Se restaurará 1 archivo.</translation>
    </message>
    <message>
        <source>%1 files will be put back.</source>
        <translation>Se restaurarán %1 archivos.</translation>
    </message>
    <message>
        <source>1 file cannot be put back.</source>
        <translation>No se puede restaurar 1 archivo.</translation>
    </message>
    <message>
        <source>%1 files cannot be put back.</source>
        <translation>No se pueden restaurar %1 archivos.</translation>
    </message>
    <message>
        <source>%1 of %2 files. Nothing that is there now is replaced.</source>
        <translation>%1 de %2 archivos. No se reemplaza nada de lo que hay ahora.</translation>
    </message>
    <message>
        <source>Files Put Back: %1</source>
        <translation>Archivos restaurados: %1</translation>
    </message>
    <message>
        <source>Size: %1</source>
        <translation>Tamaño: %1</translation>
    </message>
    <message>
        <source>1 file could not be put back:</source>
        <translation>No se pudo restaurar 1 archivo:</translation>
    </message>
    <message>
        <source>%1 files could not be put back:</source>
        <translation>No se pudieron restaurar %1 archivos:</translation>
    </message>
    <message>
        <source>Scan again to see these files in the results.</source>
        <translation>Vuelva a analizar para ver estos archivos en los resultados.</translation>
    </message>
    <message>
        <source>There is nothing to put back.</source>
        <translation>No hay nada que restaurar.</translation>
    </message>
    <message>
        <source>Nothing has been cleaned up yet.</source>
        <translation>Aún no se ha limpiado nada.</translation>
    </message>
    <message>
        <source>The last clean-up has been put back already.</source>
        <translation>La última limpieza ya se deshizo.</translation>
    </message>
    <message>
        <source>Its files are no longer in the Trash.</source>
        <translation>Sus archivos ya no están en la papelera.</translation>
    </message>
    <message>
        <source>The last clean-up could not be put back.</source>
        <translation>No se pudo deshacer la última limpieza.</translation>
    </message>
    <message>
        <source>Not all was done or written down: %1</source>
        <translation>No todo se hizo o se registró: %1</translation>
    </message>
</context>
<context>
    <name>tarvin::RememberedScans</name>
    <message>
        <source>The remembered scans could not be removed.</source>
        <translation>No se pudieron quitar los análisis recordados.</translation>
    </message>
    <message>
        <source>The remembered scans were damaged. This scan has read all files.</source>
        <translation>Los análisis recordados estaban dañados. Este análisis ha leído todos los archivos.</translation>
    </message>
    <message>
        <source>The remembered scans could not be used: %1</source>
        <translation>No se pudieron usar los análisis recordados: %1</translation>
    </message>
    <message>
        <source>This scan could not be remembered: %1</source>
        <translation>No se pudo recordar este análisis: %1</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultScreen</name>
    <message>
        <source>Duplicate Files</source>
        <translation>Archivos duplicados</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Todos</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Imágenes</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Vídeos</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Audio</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Documentos</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Otros</translation>
    </message>
    <message>
        <source>Mark All</source>
        <translation>Marcar todo</translation>
    </message>
    <message>
        <source>Unmark All</source>
        <translation>Desmarcar todo</translation>
    </message>
    <message>
        <source>Add to Exceptions</source>
        <translation>Añadir a excepciones</translation>
    </message>
    <message>
        <source>Remove Exceptions</source>
        <translation>Quitar excepciones</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Eliminar</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>Mover a la papelera</translation>
    </message>
    <message>
        <source>Delete Permanently</source>
        <translation>Eliminar definitivamente</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Ordenar por</translation>
    </message>
    <message>
        <source>File order</source>
        <translation>Orden de los archivos</translation>
    </message>
    <message>
        <source>Sort direction</source>
        <translation>Sentido de la ordenación</translation>
    </message>
    <message>
        <source>Files of the set</source>
        <translation>Archivos del grupo</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vista previa</translation>
    </message>
    <message>
        <source>File properties</source>
        <translation>Propiedades del archivo</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Tamaño</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Created Date</source>
        <translation>Fecha de creación</translation>
    </message>
    <message>
        <source>Modified Date</source>
        <translation>Fecha de modificación</translation>
    </message>
    <message>
        <source>Dimension</source>
        <translation>Dimensiones</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>Ascendente</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>Descendente</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Marcar</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
    <message>
        <source>Move Others to Trash</source>
        <translation>Mover los demás a la papelera</translation>
    </message>
    <message>
        <source>Mark All in Set</source>
        <translation>Marcar todo el grupo</translation>
    </message>
    <message>
        <source>Unmark All in Set</source>
        <translation>Desmarcar todo el grupo</translation>
    </message>
    <message>
        <source>Get Info</source>
        <translation>Información</translation>
    </message>
    <message>
        <source>Show…</source>
        <translation>Mostrar…</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTable</name>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Ubicación</translation>
    </message>
    <message>
        <source>Set</source>
        <comment>header of a column with the numbers of sets</comment>
        <translation>Grupo</translation>
    </message>
    <message>
        <source>Mark</source>
        <comment>header of a column of check boxes</comment>
        <translation>Marcar</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTexts</name>
    <message>
        <source>Mark %1</source>
        <translation>Marcar %1</translation>
    </message>
    <message>
        <source>Partly marked</source>
        <translation>Marcado en parte</translation>
    </message>
    <message>
        <source>Marked Duplicate Files: %1</source>
        <translation>Archivos marcados: %1</translation>
    </message>
    <message>
        <source>Marked File Size: %1</source>
        <translation>Tamaño marcado: %1</translation>
    </message>
    <message>
        <source>All the files of same set cannot be selected</source>
        <translation>No se pueden marcar todos los archivos de un grupo</translation>
    </message>
    <message>
        <source>Path: %1</source>
        <translation>Ruta: %1</translation>
    </message>
    <message>
        <source>Double Click On FIle To Open</source>
        <translation>Doble clic en el archivo para abrirlo</translation>
    </message>
    <message>
        <source>Sort by size</source>
        <translation>Ordenar por tamaño</translation>
    </message>
    <message>
        <source>Sort by name</source>
        <translation>Ordenar por nombre</translation>
    </message>
    <message>
        <source>Sort by created date</source>
        <translation>Ordenar por fecha de creación</translation>
    </message>
    <message>
        <source>Sort by modified date</source>
        <translation>Ordenar por fecha de modificación</translation>
    </message>
    <message>
        <source>Sort by dimension</source>
        <translation>Ordenar por dimensiones</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>Ascendente</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>Descendente</translation>
    </message>
    <message>
        <source>Duplicates Found</source>
        <translation>Duplicados encontrados</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Información</translation>
    </message>
    <message>
        <source>Review</source>
        <translation>Revisar</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Media: %1</source>
        <translation>Multimedia: %1</translation>
    </message>
    <message>
        <source>Documents: %1</source>
        <translation>Documentos: %1</translation>
    </message>
    <message>
        <source>Others: %1</source>
        <translation>Otros: %1</translation>
    </message>
    <message>
        <source>Image Duplicates: %1</source>
        <translation>Imágenes duplicadas: %1</translation>
    </message>
    <message>
        <source>Video Duplicates: %1</source>
        <translation>Vídeos duplicados: %1</translation>
    </message>
    <message>
        <source>Audio Duplicates: %1</source>
        <translation>Archivos de audio duplicados: %1</translation>
    </message>
    <message>
        <source>Documents Duplicates: %1</source>
        <translation>Documentos duplicados: %1</translation>
    </message>
    <message>
        <source>Other Duplicates: %1</source>
        <translation>Otros duplicados: %1</translation>
    </message>
    <message>
        <source>Memory Occupied: %1</source>
        <translation>Espacio ocupado: %1</translation>
    </message>
    <message>
        <source>No Image Duplicates Found</source>
        <translation>No hay imágenes duplicadas</translation>
    </message>
    <message>
        <source>No Video Duplicates Found</source>
        <translation>No hay vídeos duplicados</translation>
    </message>
    <message>
        <source>No Audio Duplicates Found</source>
        <translation>No hay archivos de audio duplicados</translation>
    </message>
    <message>
        <source>No Documents Duplicates Found</source>
        <translation>No hay documentos duplicados</translation>
    </message>
    <message>
        <source>No Other Duplicates Found</source>
        <translation>No hay otros duplicados</translation>
    </message>
    <message>
        <source>Please select any file to delete.</source>
        <translation>Marque algún archivo que eliminar.</translation>
    </message>
    <message>
        <source>Deleting files, please wait...</source>
        <translation>Eliminando archivos, espere…</translation>
    </message>
    <message>
        <source>Are you sure, you want to stop this process?</source>
        <translation>¿Seguro que desea detener esta operación?</translation>
    </message>
    <message>
        <source>Duplicates Cleaned: %1</source>
        <translation>Duplicados limpiados: %1</translation>
    </message>
    <message>
        <source>Space Regained: %1 </source>
        <translation>Espacio recuperado: %1 </translation>
    </message>
    <message>
        <source>The selected files will be excluded from all future scans. Press &quot;OK&quot; to exclude.</source>
        <translation>Los archivos seleccionados se excluirán de todos los análisis futuros. Pulse «Aceptar» para excluirlos.</translation>
    </message>
    <message>
        <source>The selected similar photos will be excluded from all future scans. Press &quot;Ok&quot; to exclude.</source>
        <translation>Las fotos similares seleccionadas se excluirán de todos los análisis futuros. Pulse «Aceptar» para excluirlas.</translation>
    </message>
    <message>
        <source>
Successfully added %1 files to exceptions.</source>
        <translation>
Archivos añadidos a las excepciones: %1.</translation>
    </message>
    <message>
        <source>Are you sure, you want to remove all exceptions?</source>
        <translation>¿Seguro que desea quitar todas las excepciones?</translation>
    </message>
    <message>
        <source>
All exceptions has been removed.</source>
        <translation>
Se han quitado todas las excepciones.</translation>
    </message>
    <message>
        <source>YES</source>
        <translation>SÍ</translation>
    </message>
    <message>
        <source>NO</source>
        <translation>NO</translation>
    </message>
    <message>
        <source>The clean-up could not begin: its moves cannot be written down.</source>
        <translation>No se pudo iniciar la limpieza: no se pueden registrar sus movimientos.</translation>
    </message>
    <message>
        <source>The file was set aside; the next clean-up begins a new one.</source>
        <translation>El archivo se apartó; la próxima limpieza empezará uno nuevo.</translation>
    </message>
    <message>
        <source>1 file was left where it is.</source>
        <translation>1 archivo se dejó en su sitio.</translation>
    </message>
    <message>
        <source>%1 files were left where they are.</source>
        <translation>%1 archivos se dejaron en su sitio.</translation>
    </message>
    <message>
        <source>1 file in the Trash may be the last copy.</source>
        <translation>Papelera: quizá 1 última copia.</translation>
    </message>
    <message>
        <source>%1 files in the Trash may be last copies.</source>
        <translation>Papelera: quizá %1 últimas copias.</translation>
    </message>
    <message>
        <source>Left: %1. Maybe last copies: %2.</source>
        <translation>Dejados: %1. Quizá únicos: %2.</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; will be excluded from all future scans. Press &quot;OK&quot; to exclude.</source>
        <translation>El archivo «%1» se excluirá de todos los análisis futuros. Pulse «Aceptar» para excluirlo.</translation>
    </message>
    <message>
        <source>The file is not there any more.</source>
        <translation>El archivo ya no existe.</translation>
    </message>
    <message>
        <source>1 file, %1</source>
        <translation>1 archivo, %1</translation>
    </message>
    <message>
        <source>%1 files, %2 each</source>
        <translation>%1 archivos, %2 cada uno</translation>
    </message>
    <message>
        <source>%1 can be regained</source>
        <translation>%1 recuperables</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTreeView</name>
    <message>
        <source>Extensions and sets</source>
        <translation>Extensiones y grupos</translation>
    </message>
</context>
<context>
    <name>tarvin::RulePanel</name>
    <message>
        <source>The first found</source>
        <translation>El primero encontrado</translation>
    </message>
    <message>
        <source>The newest</source>
        <translation>El más reciente</translation>
    </message>
    <message>
        <source>The oldest</source>
        <translation>El más antiguo</translation>
    </message>
    <message>
        <source>The shortest path</source>
        <translation>La ruta más corta</translation>
    </message>
    <message>
        <source>The longest path</source>
        <translation>La ruta más larga</translation>
    </message>
    <message>
        <source>The copy in a preferred folder</source>
        <translation>La copia en una carpeta preferida</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Añadir…</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Marcar</translation>
    </message>
    <message>
        <source>Mark by Rule</source>
        <translation>Marcar por regla</translation>
    </message>
    <message>
        <source>Keep in each set:</source>
        <translation>Conservar en cada grupo:</translation>
    </message>
    <message>
        <source>Never mark files in:</source>
        <translation>No marcar nunca en:</translation>
    </message>
    <message>
        <source>Add the folders whose copies stay.</source>
        <translation>Añada las carpetas a conservar.</translation>
    </message>
    <message>
        <source>No folders</source>
        <translation>No hay carpetas</translation>
    </message>
    <message>
        <source>Keep in each set</source>
        <translation>Conservar en cada grupo</translation>
    </message>
    <message>
        <source>Preferred folders</source>
        <translation>Carpetas preferidas</translation>
    </message>
    <message>
        <source>Never mark files in</source>
        <translation>No marcar nunca en</translation>
    </message>
    <message>
        <source>Add preferred folder</source>
        <translation>Añadir carpeta preferida</translation>
    </message>
    <message>
        <source>Remove preferred folder</source>
        <translation>Quitar carpeta preferida</translation>
    </message>
    <message>
        <source>Add protected folder</source>
        <translation>Añadir carpeta protegida</translation>
    </message>
    <message>
        <source>Remove protected folder</source>
        <translation>Quitar carpeta protegida</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Subir</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Bajar</translation>
    </message>
</context>
<context>
    <name>tarvin::RuleTexts</name>
    <message>
        <source>No files will be marked.</source>
        <translation>No se marcará ningún archivo.</translation>
    </message>
    <message>
        <source>1 file (%1) will be marked in 1 set.</source>
        <translation>Se marcará 1 archivo (%1) en 1 grupo.</translation>
    </message>
    <message>
        <source>%1 files (%2) will be marked in 1 set.</source>
        <translation>Se marcarán %1 archivos (%2) en 1 grupo.</translation>
    </message>
    <message>
        <source>%1 files (%2) will be marked in %3 sets.</source>
        <translation>Se marcarán %1 archivos (%2) en %3 grupos.</translation>
    </message>
    <message>
        <source>1 set has no copy that may be marked.</source>
        <translation>1 grupo no tiene copias que se puedan marcar.</translation>
    </message>
    <message>
        <source>%1 sets have no copy that may be marked.</source>
        <translation>%1 grupos no tienen copias que se puedan marcar.</translation>
    </message>
    <message>
        <source>Earlier marks are replaced.</source>
        <translation>Se reemplazan las marcas anteriores.</translation>
    </message>
</context>
<context>
    <name>tarvin::ScanScreenTexts</name>
    <message>
        <source>Collecting Files...</source>
        <translation>Recopilando archivos…</translation>
    </message>
    <message>
        <source>Collecting Files: %1</source>
        <translation>Recopilando archivos: %1</translation>
    </message>
    <message>
        <source>Processing File: %1</source>
        <translation>Procesando archivo: %1</translation>
    </message>
    <message>
        <source>Waiting for: %1</source>
        <translation>Esperando: %1</translation>
    </message>
    <message>
        <source>Elapsed Time: %1</source>
        <translation>Tiempo transcurrido: %1</translation>
    </message>
    <message>
        <source>Searching for duplicate files...</source>
        <translation>Buscando archivos duplicados…</translation>
    </message>
    <message>
        <source>Searching for duplicate files</source>
        <translation>Buscando archivos duplicados</translation>
    </message>
    <message>
        <source>No duplicates File found</source>
        <translation>No se encontraron archivos duplicados</translation>
    </message>
    <message>
        <source>There was not enough memory to finish the scan. The result is incomplete.</source>
        <translation>No hubo memoria suficiente para terminar el análisis. El resultado está incompleto.</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausar</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Reanudar</translation>
    </message>
    <message>
        <source>%1 of %2 compared</source>
        <translation>%1 de %2 comparados</translation>
    </message>
    <message>
        <source>less than a minute left</source>
        <translation>queda menos de un minuto</translation>
    </message>
    <message>
        <source>about %1 hours left</source>
        <translation>quedan %1 horas aprox.</translation>
    </message>
    <message>
        <source>about 1 minute left</source>
        <translation>queda 1 minuto aprox.</translation>
    </message>
    <message>
        <source>about %1 minutes left</source>
        <translation>quedan %1 minutos aprox.</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pausa</translation>
    </message>
    <message>
        <source>Stopping…</source>
        <translation>Deteniendo…</translation>
    </message>
    <message>
        <source>Waiting for the file in hand.</source>
        <translation>Esperando al archivo actual.</translation>
    </message>
</context>
<context>
    <name>tarvin::Screen</name>
    <message>
        <source>Home</source>
        <translation>Inicio</translation>
    </message>
</context>
<context>
    <name>tarvin::SearchField</name>
    <message>
        <source>Clear search</source>
        <translation>Borrar la búsqueda</translation>
    </message>
</context>
<context>
    <name>tarvin::ShownNumbers</name>
    <message>
        <source>en</source>
        <comment>the code of the language of these texts</comment>
        <translation>es</translation>
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
        <translation>Su aplicación está actualizada</translation>
    </message>
    <message>
        <source>No update required.</source>
        <translation>No es necesario actualizar.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>New update available (Tarvin Duplicate File Remover %1)</source>
        <translation>Nueva versión disponible (Tarvin Duplicate File Remover %1)</translation>
    </message>
    <message>
        <source>Would you like to update this version?</source>
        <translation>¿Desea actualizar esta versión?</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Actualizar</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>Recordármelo más tarde</translation>
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
        <translation>Las fotos ocupan la mayor parte del espacio de su dispositivo. Muchas están duplicadas. Limpie las fotos similares para recuperar espacio.</translation>
    </message>
    <message>
        <source>Search Exact</source>
        <translation>Búsqueda exacta</translation>
    </message>
    <message>
        <source>Search photos that are similar enough</source>
        <translation>Buscar fotos tan similares</translation>
    </message>
    <message>
        <source>to be one and the same file.</source>
        <translation>que son un mismo archivo.</translation>
    </message>
    <message>
        <source>Search Similar</source>
        <translation>Búsqueda de similares</translation>
    </message>
    <message>
        <source>Search photos that are similar</source>
        <translation>Buscar fotos similares</translation>
    </message>
</context>
</TS>
