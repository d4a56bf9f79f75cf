<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR" sourcelanguage="en">
<context>
    <name>tarvin::AboutPanel</name>
    <message>
        <source>Finds files with identical content, groups them into sets and moves the copies you choose to the Trash.</source>
        <translation>Encontra arquivos com conteúdo idêntico, reúne-os em grupos e move para a lixeira as cópias que você escolher.</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Sobre</translation>
    </message>
    <message>
        <source>© Tarvin Software. All rights reserved.</source>
        <translation>© Tarvin Software. Todos os direitos reservados.</translation>
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
        <translation>Há uma operação em andamento. Pare-a primeiro.</translation>
    </message>
    <message>
        <source>To scan other folders, return to the start screen first.</source>
        <translation>Para analisar outras pastas, volte primeiro ao início.</translation>
    </message>
</context>
<context>
    <name>tarvin::CloseButton</name>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
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
        <translation>Parar</translation>
    </message>
    <message>
        <source>Moving to the Trash</source>
        <translation>Movendo para a lixeira</translation>
    </message>
    <message>
        <source>Deleting files, please wait...</source>
        <translation>Excluindo arquivos, aguarde…</translation>
    </message>
    <message>
        <source>Deletion progress</source>
        <translation>Progresso da exclusão</translation>
    </message>
    <message>
        <source>Marked files go to the Trash. You can put them back from there.</source>
        <translation>Os arquivos marcados vão para a lixeira. De lá você pode restaurá-los.</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionListPanel</name>
    <message>
        <source>No exceptions</source>
        <translation>Nenhuma exceção</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Remover</translation>
    </message>
    <message>
        <source>Remove All Missing</source>
        <translation>Remover ausentes</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
    </message>
    <message>
        <source>Files that you add to the exceptions are skipped by every later scan.</source>
        <translation>Os arquivos adicionados às exceções são ignorados em todas as análises seguintes.</translation>
    </message>
    <message>
        <source>Exceptions</source>
        <translation>Exceções</translation>
    </message>
    <message>
        <source>Search names and folders</source>
        <translation>Buscar nomes e pastas</translation>
    </message>
    <message>
        <source>Search exceptions</source>
        <translation>Buscar nas exceções</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionListTexts</name>
    <message>
        <source>1 file</source>
        <translation>1 arquivo</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1 arquivos</translation>
    </message>
    <message>
        <source>1 file, not there any more</source>
        <translation>1 arquivo, não existe mais</translation>
    </message>
    <message>
        <source>%1 files, %2 not there any more</source>
        <translation>%1 arquivos, %2 não existem mais</translation>
    </message>
    <message>
        <source>%1 of 1 file</source>
        <translation>%1 de 1 arquivo</translation>
    </message>
    <message>
        <source>%1 of %2 files</source>
        <translation>%1 de %2 arquivos</translation>
    </message>
    <message>
        <source>No exception matches &quot;%1&quot;.</source>
        <translation>Nenhuma exceção corresponde a “%1”.</translation>
    </message>
    <message>
        <source>Exceptions</source>
        <translation>Exceções</translation>
    </message>
    <message>
        <source>The exceptions could not be saved.</source>
        <translation>Não foi possível salvar as exceções.</translation>
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
        <translation>OK</translation>
    </message>
    <message>
        <source>Add to Exceptions</source>
        <translation>Adicionar às exceções</translation>
    </message>
</context>
<context>
    <name>tarvin::ExceptionRows</name>
    <message>
        <source>Not there any more</source>
        <translation>Não existe mais</translation>
    </message>
    <message>
        <source>Drive not attached</source>
        <translation>Unidade não conectada</translation>
    </message>
    <message>
        <source>%1, %2, not there any more</source>
        <comment>name of a file, its folder</comment>
        <translation>%1, %2, não existe mais</translation>
    </message>
    <message>
        <source>%1, %2, drive not attached</source>
        <comment>name of a file, its folder</comment>
        <translation>%1, %2, unidade não conectada</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>name of a file, its folder</comment>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nome</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Pasta</translation>
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
        <translation>Arquivos duplicados %1</translation>
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
        <translation>Não foi possível exportar os resultados.</translation>
    </message>
    <message>
        <source>Exporting the results…</source>
        <translation>Exportando os resultados…</translation>
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
        <translation>Ações para %1</translation>
    </message>
</context>
<context>
    <name>tarvin::FileDialogs</name>
    <message>
        <source>Add Folders</source>
        <translation>Adicionar pastas</translation>
    </message>
    <message>
        <source>Add Photos</source>
        <translation>Adicionar fotos</translation>
    </message>
    <message>
        <source>Photos</source>
        <translation>Fotos</translation>
    </message>
    <message>
        <source>Only photos of these types can be added: %1.</source>
        <translation>Só é possível adicionar fotos destes tipos: %1.</translation>
    </message>
    <message>
        <source>Folders not shown here can be dropped onto the list.</source>
        <translation>As pastas que não aparecem aqui podem ser arrastadas para a lista.</translation>
    </message>
    <message>
        <source>Photos not shown here can be dropped onto the list.</source>
        <translation>As fotos que não aparecem aqui podem ser arrastadas para a lista.</translation>
    </message>
    <message>
        <source>Some of the chosen items cannot be added here. Please drop them onto the list.</source>
        <translation>Alguns dos itens escolhidos não podem ser adicionados aqui. Arraste-os para a lista.</translation>
    </message>
    <message>
        <source>%1 already exists. Do you want to replace it?</source>
        <translation>%1 já existe. Deseja substituí-lo?</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Substituir</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Some of the chosen items cannot be added here.</source>
        <translation>Alguns dos itens escolhidos não podem ser adicionados aqui.</translation>
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
        <translation>Abrir a pasta do arquivo</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Copiar caminho</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>Manter este</translation>
    </message>
    <message>
        <source>Mark All in This Folder</source>
        <translation>Marcar tudo nesta pasta</translation>
    </message>
    <message>
        <source>Add to Exceptions…</source>
        <translation>Adicionar às exceções…</translation>
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
Tamanho           : %2
Dimensões       : %3
Criado em         : %4
Modificado em  : %5</translation>
    </message>
    <message>
        <source> %1
Size                       : %2
Created Date        : %3
Modified Date       : %4</source>
        <translation> %1
Tamanho           : %2
Criado em         : %3
Modificado em  : %4</translation>
    </message>
</context>
<context>
    <name>tarvin::FileReasons</name>
    <message>
        <source>Name</source>
        <translation>Nome</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Local</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Motivo</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>e mais %1</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Pasta</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Arquivo</translation>
    </message>
</context>
<context>
    <name>tarvin::Help</name>
    <message>
        <source>Version %1</source>
        <translation>Versão %1</translation>
    </message>
</context>
<context>
    <name>tarvin::HomeScreen</name>
    <message>
        <source>Find duplicate files</source>
        <translation>Encontrar duplicados</translation>
    </message>
    <message>
        <source>Choose where to look. Identical files are grouped into sets, so you can review them and move the copies to the Trash.</source>
        <translation>Escolha onde procurar. Os arquivos idênticos são reunidos em grupos, para que você possa revisá-los e mover as cópias para a lixeira.</translation>
    </message>
    <message>
        <source>Scan Drives</source>
        <translation>Analisar unidades</translation>
    </message>
    <message>
        <source>Scan Folders</source>
        <translation>Analisar pastas</translation>
    </message>
</context>
<context>
    <name>tarvin::HomeTexts</name>
    <message>
        <source>Files cleaned so far: %1 (%2)</source>
        <translation>Arquivos limpos até agora: %1 (%2)</translation>
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
        <translation>Mostrar os arquivos que ficaram onde estão</translation>
    </message>
    <message>
        <source>Show what was not read…</source>
        <translation>Mostrar o que não foi lido…</translation>
    </message>
</context>
<context>
    <name>tarvin::KeptFiles</name>
    <message>
        <source>Not there any more</source>
        <translation>Não existe mais</translation>
    </message>
    <message>
        <source>Changed since the scan</source>
        <translation>Alterado desde a análise</translation>
    </message>
    <message>
        <source>No other copy is left</source>
        <translation>Não resta nenhuma outra cópia</translation>
    </message>
    <message>
        <source>Stopped before its turn</source>
        <translation>Parado antes da sua vez</translation>
    </message>
    <message>
        <source>The Trash of this volume is full</source>
        <translation>A lixeira deste volume está cheia</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Permissão negada</translation>
    </message>
    <message>
        <source>Its move was not written down before</source>
        <translation>A movimentação não foi registrada antes</translation>
    </message>
    <message>
        <source>In the Trash, not moved back: %1</source>
        <translation>Na lixeira, não devolvido: %1</translation>
    </message>
    <message>
        <source>The disk is full</source>
        <translation>O disco está cheio</translation>
    </message>
    <message>
        <source>Its copy on another volume may be the same file</source>
        <translation>A cópia em outro volume pode ser o mesmo arquivo</translation>
    </message>
</context>
<context>
    <name>tarvin::KeptList</name>
    <message>
        <source>Files to check</source>
        <translation>Arquivos a verificar</translation>
    </message>
    <message>
        <source>Show the files to check</source>
        <translation>Mostrar os arquivos a verificar</translation>
    </message>
    <message>
        <source>Could Not Be Moved Back</source>
        <translation>Não puderam ser devolvidos</translation>
    </message>
    <message>
        <source>These files are in the Trash. No other copy of them may be left outside it.</source>
        <translation>Estes arquivos estão na lixeira. Talvez não reste nenhuma cópia fora dela.</translation>
    </message>
    <message>
        <source>Files to Check</source>
        <translation>Arquivos a verificar</translation>
    </message>
    <message>
        <source>Files in the Trash may be last copies. The others were not moved and are still marked.</source>
        <translation>Na lixeira pode haver últimas cópias. Os outros não foram movidos e continuam marcados.</translation>
    </message>
</context>
<context>
    <name>tarvin::ListPanel</name>
    <message>
        <source>These files were not moved to the Trash. They are still in the results and still marked.</source>
        <translation>Estes arquivos não foram movidos para a lixeira. Continuam marcados nos resultados.</translation>
    </message>
    <message>
        <source>Copy List</source>
        <translation>Copiar lista</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
    </message>
    <message>
        <source>Left Where They Are</source>
        <translation>Deixados onde estão</translation>
    </message>
    <message>
        <source>Files left where they are</source>
        <translation>Arquivos deixados onde estão</translation>
    </message>
    <message>
        <source>Could Not Be Read</source>
        <translation>Não foi possível ler</translation>
    </message>
    <message>
        <source>These folders and files were left out of the scan. Copies in them were not found.</source>
        <translation>Estas pastas e arquivos não foram analisados, nem as cópias que contêm.</translation>
    </message>
    <message>
        <source>Folders and files that could not be read</source>
        <translation>Pastas e arquivos que não puderam ser lidos</translation>
    </message>
</context>
<context>
    <name>tarvin::LocationScreen</name>
    <message>
        <source>Mark All</source>
        <translation>Marcar tudo</translation>
    </message>
    <message>
        <source>Unmark All</source>
        <translation>Desmarcar tudo</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>Remover da lista</translation>
    </message>
    <message>
        <source>Add Photos</source>
        <translation>Adicionar fotos</translation>
    </message>
    <message>
        <source>Add Folders</source>
        <translation>Adicionar pastas</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Analisar</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Marcar</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Voltar</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Avançar</translation>
    </message>
    <message>
        <source>Check the locations to scan. You can also drop folders here.</source>
        <translation>Marque os locais a analisar. Você também pode arrastar pastas para cá.</translation>
    </message>
    <message>
        <source>Locations</source>
        <translation>Locais</translation>
    </message>
    <message>
        <source>No locations yet. Add folders, or drop them here.</source>
        <translation>Ainda não há locais. Adicione pastas ou arraste-as para cá.</translation>
    </message>
    <message>
        <source>Choose Locations</source>
        <translation>Escolher locais</translation>
    </message>
</context>
<context>
    <name>tarvin::LocationTexts</name>
    <message>
        <source>File already added.</source>
        <translation>O arquivo já foi adicionado.</translation>
    </message>
    <message>
        <source>Unsupported file.</source>
        <translation>Arquivo não compatível.</translation>
    </message>
    <message>
        <source>Image already added.</source>
        <translation>A imagem já foi adicionada.</translation>
    </message>
    <message>
        <source>Folder already added.</source>
        <translation>A pasta já foi adicionada.</translation>
    </message>
    <message>
        <source>Select Folders (Double click to go deeper)</source>
        <translation>Escolher pastas (clique duplo para abrir)</translation>
    </message>
    <message>
        <source>Select Drive</source>
        <translation>Escolher unidade</translation>
    </message>
    <message>
        <source>Scan</source>
        <comment>header of a column of check boxes</comment>
        <translation>Analisar</translation>
    </message>
    <message>
        <source>Select the check box and click &apos;Scan&apos; button to proceed.</source>
        <translation>Marque a caixa e clique em “Analisar” para continuar.</translation>
    </message>
    <message>
        <source>No Folders.</source>
        <translation>Nenhuma pasta.</translation>
    </message>
    <message>
        <source>Scan this location: %1</source>
        <translation>Analisar este local: %1</translation>
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
        <translation>Analisar</translation>
    </message>
</context>
<context>
    <name>tarvin::MainWindow</name>
    <message>
        <source>Help</source>
        <translation>Ajuda</translation>
    </message>
    <message>
        <source>User Guide</source>
        <translation>Guia do usuário</translation>
    </message>
    <message>
        <source>Contact Support</source>
        <translation>Contatar o suporte</translation>
    </message>
    <message>
        <source>Check for Updates...</source>
        <translation>Verificar atualizações…</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>Sobre o %1</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Não</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Sim</translation>
    </message>
    <message>
        <source>Are you sure, you want to stop this process?</source>
        <translation>Deseja mesmo parar esta operação?</translation>
    </message>
    <message>
        <source>All the files of same set cannot be selected</source>
        <translation>Não é possível marcar todos os arquivos de um grupo</translation>
    </message>
    <message>
        <source>Export Results…</source>
        <translation>Exportar resultados…</translation>
    </message>
    <message>
        <source>Put Back Last Clean-up…</source>
        <translation>Desfazer a última limpeza…</translation>
    </message>
    <message>
        <source>Skip Hidden Files and Folders</source>
        <translation>Ignorar arquivos e pastas ocultos</translation>
    </message>
    <message>
        <source>Remember Scans</source>
        <translation>Lembrar as análises</translation>
    </message>
    <message>
        <source>Scan in the Background</source>
        <translation>Analisar em segundo plano</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mais</translation>
    </message>
    <message>
        <source>Mark by Rule…</source>
        <translation>Marcar por regra…</translation>
    </message>
    <message>
        <source>Manage Exceptions…</source>
        <translation>Gerenciar exceções…</translation>
    </message>
</context>
<context>
    <name>tarvin::NotReadFiles</name>
    <message>
        <source>Trash folders are never scanned</source>
        <translation>Lixeiras nunca são analisadas</translation>
    </message>
    <message>
        <source>1 folder could not be read.</source>
        <translation>1 pasta não pôde ser lida.</translation>
    </message>
    <message>
        <source>%1 folders could not be read.</source>
        <translation>%1 pastas não puderam ser lidas.</translation>
    </message>
    <message>
        <source>1 file could not be read.</source>
        <translation>1 arquivo não pôde ser lido.</translation>
    </message>
    <message>
        <source>%1 files could not be read.</source>
        <translation>%1 arquivos não puderam ser lidos.</translation>
    </message>
    <message>
        <source>1 folder and 1 file could not be read.</source>
        <translation>1 pasta e 1 arquivo não puderam ser lidos.</translation>
    </message>
    <message>
        <source>1 folder and %1 files could not be read.</source>
        <translation>1 pasta e %1 arquivos não puderam ser lidos.</translation>
    </message>
    <message>
        <source>%1 folders and 1 file could not be read.</source>
        <translation>%1 pastas e 1 arquivo não puderam ser lidos.</translation>
    </message>
    <message>
        <source>%1 folders and %2 files could not be read.</source>
        <translation>%1 pastas e %2 arquivos não puderam ser lidos.</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Permissão negada</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>Erro de entrada/saída</translation>
    </message>
    <message>
        <source>Not there any more</source>
        <translation>Não existe mais</translation>
    </message>
    <message>
        <source>Stopped answering</source>
        <translation>Parou de responder</translation>
    </message>
    <message>
        <source>Changed while it was read</source>
        <translation>Alterado durante a leitura</translation>
    </message>
</context>
<context>
    <name>tarvin::OwnReasons</name>
    <message>
        <source>No longer in the Trash</source>
        <translation>Não está mais na lixeira</translation>
    </message>
    <message>
        <source>Something else has its name now</source>
        <translation>Agora outra coisa tem o nome dele</translation>
    </message>
    <message>
        <source>Its Trash is on another volume</source>
        <translation>A lixeira dele está em outro volume</translation>
    </message>
    <message>
        <source>This volume has no Trash</source>
        <translation>Este volume não tem lixeira</translation>
    </message>
    <message>
        <source>A folder of the Trash is a link</source>
        <translation>Uma pasta da lixeira é um link</translation>
    </message>
    <message>
        <source>A part of the Trash is not a folder</source>
        <translation>Uma parte da lixeira não é uma pasta</translation>
    </message>
    <message>
        <source>The Trash belongs to another user</source>
        <translation>A lixeira pertence a outro usuário</translation>
    </message>
    <message>
        <source>Other users can change the Trash</source>
        <translation>Outros usuários podem alterar a lixeira</translation>
    </message>
    <message>
        <source>There is no free name in the Trash</source>
        <translation>Não há nome livre na lixeira</translation>
    </message>
    <message>
        <source>there is no home folder to keep the journal in</source>
        <translation>não há pasta pessoal para guardar o registro</translation>
    </message>
    <message>
        <source>in use by another process</source>
        <translation>em uso por outro processo</translation>
    </message>
    <message>
        <source>a database of another program</source>
        <translation>um banco de dados de outro programa</translation>
    </message>
    <message>
        <source>database or disk is full</source>
        <translation>o banco de dados ou o disco está cheio</translation>
    </message>
    <message>
        <source>written by a newer version of the program</source>
        <translation>gravado por uma versão mais nova do programa</translation>
    </message>
    <message>
        <source>is a link</source>
        <translation>é um link</translation>
    </message>
    <message>
        <source>the file is damaged</source>
        <translation>o arquivo está danificado</translation>
    </message>
    <message>
        <source>the file was moved or replaced</source>
        <translation>o arquivo foi movido ou substituído</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>não é um arquivo comum</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>o arquivo é grande demais</translation>
    </message>
    <message>
        <source>not a property list</source>
        <translation>não é uma lista de propriedades</translation>
    </message>
    <message>
        <source>not a property list of totals</source>
        <translation>não é uma lista de propriedades com totais</translation>
    </message>
    <message>
        <source>a link to a missing file</source>
        <translation>um link para um arquivo que não existe</translation>
    </message>
</context>
<context>
    <name>tarvin::ProgressScreen</name>
    <message>
        <source>Searching for duplicate files</source>
        <translation>Procurando arquivos duplicados</translation>
    </message>
    <message>
        <source>Searching for duplicate files...</source>
        <translation>Procurando arquivos duplicados…</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausar</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Parar</translation>
    </message>
    <message>
        <source>Scan progress</source>
        <translation>Progresso da análise</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackList</name>
    <message>
        <source>No longer in the Trash</source>
        <translation>Não está mais na lixeira</translation>
    </message>
    <message>
        <source>Changed in the Trash</source>
        <translation>Alterado na lixeira</translation>
    </message>
    <message>
        <source>Drive not attached</source>
        <translation>Unidade não conectada</translation>
    </message>
    <message>
        <source>Stopped before its turn</source>
        <translation>Parado antes da sua vez</translation>
    </message>
    <message>
        <source>The disk is full</source>
        <translation>O disco está cheio</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Permissão negada</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Pronto</translation>
    </message>
    <message>
        <source>Something else is there now: will be named &quot;%1&quot;</source>
        <translation>O lugar está ocupado: vai se chamar “%1”</translation>
    </message>
    <message>
        <source>The folder is gone: will be made again</source>
        <translation>A pasta não existe mais: será criada de novo</translation>
    </message>
    <message>
        <source>%1, to %2, %3</source>
        <comment>name of a file, its folder, what becomes of it</comment>
        <translation>%1, para %2, %3</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>e mais %1</translation>
    </message>
    <message>
        <source>File and folder it goes back to</source>
        <translation>Arquivo e pasta para onde volta</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Situação</translation>
    </message>
    <message>
        <source>Its folder is a link now</source>
        <translation>A pasta dele agora é um link</translation>
    </message>
    <message>
        <source>Something else is where its folder was</source>
        <translation>Há outra coisa onde estava a pasta dele</translation>
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
        <translation>Desfazer a última limpeza</translation>
    </message>
    <message>
        <source>Files of the last clean-up</source>
        <translation>Arquivos da última limpeza</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackProgress</name>
    <message>
        <source>Stop</source>
        <translation>Parar</translation>
    </message>
    <message>
        <source>Putting Back</source>
        <translation>Restauração</translation>
    </message>
    <message>
        <source>Putting files back, please wait...</source>
        <translation>Restaurando arquivos, aguarde…</translation>
    </message>
    <message>
        <source>Put back progress</source>
        <translation>Progresso da restauração</translation>
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
        <translation>Desfazer a última limpeza</translation>
    </message>
    <message>
        <source>Files that could not be put back</source>
        <translation>Arquivos que não puderam ser restaurados</translation>
    </message>
</context>
<context>
    <name>tarvin::PutBackTexts</name>
    <message>
        <source>Put Back Last Clean-up</source>
        <translation>Desfazer a última limpeza</translation>
    </message>
    <message>
        <source>1 file (%1)</source>
        <translation>1 arquivo (%1)</translation>
    </message>
    <message>
        <source>%1 files (%2)</source>
        <translation>%1 arquivos (%2)</translation>
    </message>
    <message>
        <source>Checking…</source>
        <translation>Verificando…</translation>
    </message>
    <message>
        <source>No files can be put back.</source>
        <translation>Nenhum arquivo pode ser restaurado.</translation>
    </message>
    <message>
        <source>1 file will be put back.</source>
        <translation>1 arquivo será restaurado.</translation>
    </message>
    <message>
        <source>%1 files will be put back.</source>
        <translation>%1 arquivos serão restaurados.</translation>
    </message>
    <message>
        <source>1 file cannot be put back.</source>
        <translation>1 arquivo não pode ser restaurado.</translation>
    </message>
    <message>
        <source>%1 files cannot be put back.</source>
        <translation>%1 arquivos não podem ser restaurados.</translation>
    </message>
    <message>
        <source>%1 of %2 files. Nothing that is there now is replaced.</source>
        <translation>%1 de %2 arquivos. Nada do que está lá agora é substituído.</translation>
    </message>
    <message>
        <source>Files Put Back: %1</source>
        <translation>Arquivos restaurados: %1</translation>
    </message>
    <message>
        <source>Size: %1</source>
        <translation>Tamanho: %1</translation>
    </message>
    <message>
        <source>1 file could not be put back:</source>
        <translation>1 arquivo não pôde ser restaurado:</translation>
    </message>
    <message>
        <source>%1 files could not be put back:</source>
        <translation>%1 arquivos não puderam ser restaurados:</translation>
    </message>
    <message>
        <source>Scan again to see these files in the results.</source>
        <translation>Analise de novo para ver estes arquivos nos resultados.</translation>
    </message>
    <message>
        <source>There is nothing to put back.</source>
        <translation>Não há nada para restaurar.</translation>
    </message>
    <message>
        <source>Nothing has been cleaned up yet.</source>
        <translation>Nada foi limpo ainda.</translation>
    </message>
    <message>
        <source>The last clean-up has been put back already.</source>
        <translation>A última limpeza já foi desfeita.</translation>
    </message>
    <message>
        <source>Its files are no longer in the Trash.</source>
        <translation>Os arquivos dela não estão mais na lixeira.</translation>
    </message>
    <message>
        <source>The last clean-up could not be put back.</source>
        <translation>Não foi possível desfazer a última limpeza.</translation>
    </message>
    <message>
        <source>Not all was done or written down: %1</source>
        <translation>Nem tudo foi feito ou registrado: %1</translation>
    </message>
</context>
<context>
    <name>tarvin::RememberedScans</name>
    <message>
        <source>The remembered scans could not be removed.</source>
        <translation>Não foi possível remover as análises lembradas.</translation>
    </message>
    <message>
        <source>The remembered scans were damaged. This scan has read all files.</source>
        <translation>As análises lembradas estavam danificadas. Esta análise leu todos os arquivos.</translation>
    </message>
    <message>
        <source>The remembered scans could not be used: %1</source>
        <translation>Não foi possível usar as análises lembradas: %1</translation>
    </message>
    <message>
        <source>This scan could not be remembered: %1</source>
        <translation>Não foi possível lembrar esta análise: %1</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultScreen</name>
    <message>
        <source>Duplicate Files</source>
        <translation>Arquivos duplicados</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Todos</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Imagens</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Vídeos</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Áudio</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Documentos</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Outros</translation>
    </message>
    <message>
        <source>Mark All</source>
        <translation>Marcar tudo</translation>
    </message>
    <message>
        <source>Unmark All</source>
        <translation>Desmarcar tudo</translation>
    </message>
    <message>
        <source>Add to Exceptions</source>
        <translation>Adicionar às exceções</translation>
    </message>
    <message>
        <source>Remove Exceptions</source>
        <translation>Remover exceções</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Excluir</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>Mover para a lixeira</translation>
    </message>
    <message>
        <source>Delete Permanently</source>
        <translation>Excluir permanentemente</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Ordenar por</translation>
    </message>
    <message>
        <source>File order</source>
        <translation>Ordem dos arquivos</translation>
    </message>
    <message>
        <source>Sort direction</source>
        <translation>Sentido da ordenação</translation>
    </message>
    <message>
        <source>Files of the set</source>
        <translation>Arquivos do grupo</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Visualização</translation>
    </message>
    <message>
        <source>File properties</source>
        <translation>Propriedades do arquivo</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Tamanho</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nome</translation>
    </message>
    <message>
        <source>Created Date</source>
        <translation>Data de criação</translation>
    </message>
    <message>
        <source>Modified Date</source>
        <translation>Data de modificação</translation>
    </message>
    <message>
        <source>Dimension</source>
        <translation>Dimensões</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>Crescente</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>Decrescente</translation>
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
        <translation>Mostrar na pasta</translation>
    </message>
    <message>
        <source>Move Others to Trash</source>
        <translation>Mover os outros para a lixeira</translation>
    </message>
    <message>
        <source>Mark All in Set</source>
        <translation>Marcar todo o grupo</translation>
    </message>
    <message>
        <source>Unmark All in Set</source>
        <translation>Desmarcar todo o grupo</translation>
    </message>
    <message>
        <source>Get Info</source>
        <translation>Informações</translation>
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
        <translation>Nome</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Local</translation>
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
        <translation>Parcialmente marcado</translation>
    </message>
    <message>
        <source>Marked Duplicate Files: %1</source>
        <translation>Arquivos marcados: %1</translation>
    </message>
    <message>
        <source>Marked File Size: %1</source>
        <translation>Tamanho marcado: %1</translation>
    </message>
    <message>
        <source>All the files of same set cannot be selected</source>
        <translation>Não é possível marcar todos os arquivos de um grupo</translation>
    </message>
    <message>
        <source>Path: %1</source>
        <translation>Caminho: %1</translation>
    </message>
    <message>
        <source>Double Click On FIle To Open</source>
        <translation>Clique duas vezes no arquivo para abri-lo</translation>
    </message>
    <message>
        <source>Sort by size</source>
        <translation>Ordenar por tamanho</translation>
    </message>
    <message>
        <source>Sort by name</source>
        <translation>Ordenar por nome</translation>
    </message>
    <message>
        <source>Sort by created date</source>
        <translation>Ordenar por data de criação</translation>
    </message>
    <message>
        <source>Sort by modified date</source>
        <translation>Ordenar por data de modificação</translation>
    </message>
    <message>
        <source>Sort by dimension</source>
        <translation>Ordenar por dimensões</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>Crescente</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>Decrescente</translation>
    </message>
    <message>
        <source>Duplicates Found</source>
        <translation>Duplicados encontrados</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Informação</translation>
    </message>
    <message>
        <source>Review</source>
        <translation>Revisar</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Media: %1</source>
        <translation>Mídia: %1</translation>
    </message>
    <message>
        <source>Documents: %1</source>
        <translation>Documentos: %1</translation>
    </message>
    <message>
        <source>Others: %1</source>
        <translation>Outros: %1</translation>
    </message>
    <message>
        <source>Image Duplicates: %1</source>
        <translation>Imagens duplicadas: %1</translation>
    </message>
    <message>
        <source>Video Duplicates: %1</source>
        <translation>Vídeos duplicados: %1</translation>
    </message>
    <message>
        <source>Audio Duplicates: %1</source>
        <translation>Arquivos de áudio duplicados: %1</translation>
    </message>
    <message>
        <source>Documents Duplicates: %1</source>
        <translation>Documentos duplicados: %1</translation>
    </message>
    <message>
        <source>Other Duplicates: %1</source>
        <translation>Outros duplicados: %1</translation>
    </message>
    <message>
        <source>Memory Occupied: %1</source>
        <translation>Espaço ocupado: %1</translation>
    </message>
    <message>
        <source>No Image Duplicates Found</source>
        <translation>Nenhuma imagem duplicada</translation>
    </message>
    <message>
        <source>No Video Duplicates Found</source>
        <translation>Nenhum vídeo duplicado</translation>
    </message>
    <message>
        <source>No Audio Duplicates Found</source>
        <translation>Nenhum arquivo de áudio duplicado</translation>
    </message>
    <message>
        <source>No Documents Duplicates Found</source>
        <translation>Nenhum documento duplicado</translation>
    </message>
    <message>
        <source>No Other Duplicates Found</source>
        <translation>Nenhum outro duplicado</translation>
    </message>
    <message>
        <source>Please select any file to delete.</source>
        <translation>Marque algum arquivo para excluir.</translation>
    </message>
    <message>
        <source>Deleting files, please wait...</source>
        <translation>Excluindo arquivos, aguarde…</translation>
    </message>
    <message>
        <source>Are you sure, you want to stop this process?</source>
        <translation>Deseja mesmo parar esta operação?</translation>
    </message>
    <message>
        <source>Duplicates Cleaned: %1</source>
        <translation>Duplicados limpos: %1</translation>
    </message>
    <message>
        <source>Space Regained: %1 </source>
        <translation>Espaço recuperado: %1 </translation>
    </message>
    <message>
        <source>The selected files will be excluded from all future scans. Press &quot;OK&quot; to exclude.</source>
        <translation>Os arquivos selecionados serão ignorados em todas as análises futuras. Pressione “OK” para ignorá-los.</translation>
    </message>
    <message>
        <source>The selected similar photos will be excluded from all future scans. Press &quot;Ok&quot; to exclude.</source>
        <translation>As fotos semelhantes selecionadas serão ignoradas em todas as análises futuras. Pressione “OK” para ignorá-las.</translation>
    </message>
    <message>
        <source>
Successfully added %1 files to exceptions.</source>
        <translation>
Arquivos adicionados às exceções: %1.</translation>
    </message>
    <message>
        <source>Are you sure, you want to remove all exceptions?</source>
        <translation>Deseja mesmo remover todas as exceções?</translation>
    </message>
    <message>
        <source>
All exceptions has been removed.</source>
        <translation>
Todas as exceções foram removidas.</translation>
    </message>
    <message>
        <source>YES</source>
        <translation>SIM</translation>
    </message>
    <message>
        <source>NO</source>
        <translation>NÃO</translation>
    </message>
    <message>
        <source>The clean-up could not begin: its moves cannot be written down.</source>
        <translation>A limpeza não pôde começar: não é possível registrar as movimentações.</translation>
    </message>
    <message>
        <source>The file was set aside; the next clean-up begins a new one.</source>
        <translation>O arquivo foi posto de lado; a próxima limpeza começará um novo.</translation>
    </message>
    <message>
        <source>1 file was left where it is.</source>
        <translation>1 arquivo ficou onde está.</translation>
    </message>
    <message>
        <source>%1 files were left where they are.</source>
        <translation>%1 arquivos ficaram onde estão.</translation>
    </message>
    <message>
        <source>1 file in the Trash may be the last copy.</source>
        <translation>Lixeira: talvez 1 última cópia.</translation>
    </message>
    <message>
        <source>%1 files in the Trash may be last copies.</source>
        <translation>Lixeira: talvez %1 últimas cópias.</translation>
    </message>
    <message>
        <source>Left: %1. Maybe last copies: %2.</source>
        <translation>Deixados: %1. Talvez únicos: %2.</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; will be excluded from all future scans. Press &quot;OK&quot; to exclude.</source>
        <translation>O arquivo “%1” será ignorado em todas as análises futuras. Pressione “OK” para ignorá-lo.</translation>
    </message>
    <message>
        <source>The file is not there any more.</source>
        <translation>O arquivo não existe mais.</translation>
    </message>
    <message>
        <source>1 file, %1</source>
        <translation>1 arquivo, %1</translation>
    </message>
    <message>
        <source>%1 files, %2 each</source>
        <translation>%1 arquivos, %2 cada</translation>
    </message>
    <message>
        <source>%1 can be regained</source>
        <translation>%1 recuperáveis</translation>
    </message>
</context>
<context>
    <name>tarvin::ResultTreeView</name>
    <message>
        <source>Extensions and sets</source>
        <translation>Extensões e grupos</translation>
    </message>
</context>
<context>
    <name>tarvin::RulePanel</name>
    <message>
        <source>The first found</source>
        <translation>O primeiro encontrado</translation>
    </message>
    <message>
        <source>The newest</source>
        <translation>O mais recente</translation>
    </message>
    <message>
        <source>The oldest</source>
        <translation>O mais antigo</translation>
    </message>
    <message>
        <source>The shortest path</source>
        <translation>O caminho mais curto</translation>
    </message>
    <message>
        <source>The longest path</source>
        <translation>O caminho mais longo</translation>
    </message>
    <message>
        <source>The copy in a preferred folder</source>
        <translation>A cópia em uma pasta preferida</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Adicionar…</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Remover</translation>
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
        <translation>Marcar por regra</translation>
    </message>
    <message>
        <source>Keep in each set:</source>
        <translation>Manter em cada grupo:</translation>
    </message>
    <message>
        <source>Never mark files in:</source>
        <translation>Nunca marcar arquivos em:</translation>
    </message>
    <message>
        <source>Add the folders whose copies stay.</source>
        <translation>Adicione as pastas a preservar.</translation>
    </message>
    <message>
        <source>No folders</source>
        <translation>Nenhuma pasta</translation>
    </message>
    <message>
        <source>Keep in each set</source>
        <translation>Manter em cada grupo</translation>
    </message>
    <message>
        <source>Preferred folders</source>
        <translation>Pastas preferidas</translation>
    </message>
    <message>
        <source>Never mark files in</source>
        <translation>Nunca marcar arquivos em</translation>
    </message>
    <message>
        <source>Add preferred folder</source>
        <translation>Adicionar pasta preferida</translation>
    </message>
    <message>
        <source>Remove preferred folder</source>
        <translation>Remover pasta preferida</translation>
    </message>
    <message>
        <source>Add protected folder</source>
        <translation>Adicionar pasta protegida</translation>
    </message>
    <message>
        <source>Remove protected folder</source>
        <translation>Remover pasta protegida</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Mover para cima</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Mover para baixo</translation>
    </message>
</context>
<context>
    <name>tarvin::RuleTexts</name>
    <message>
        <source>No files will be marked.</source>
        <translation>Nenhum arquivo será marcado.</translation>
    </message>
    <message>
        <source>1 file (%1) will be marked in 1 set.</source>
        <translation>1 arquivo (%1) será marcado em 1 grupo.</translation>
    </message>
    <message>
        <source>%1 files (%2) will be marked in 1 set.</source>
        <translation>%1 arquivos (%2) serão marcados em 1 grupo.</translation>
    </message>
    <message>
        <source>%1 files (%2) will be marked in %3 sets.</source>
        <translation>%1 arquivos (%2) serão marcados em %3 grupos.</translation>
    </message>
    <message>
        <source>1 set has no copy that may be marked.</source>
        <translation>1 grupo não tem cópia que possa ser marcada.</translation>
    </message>
    <message>
        <source>%1 sets have no copy that may be marked.</source>
        <translation>%1 grupos não têm cópia que possa ser marcada.</translation>
    </message>
    <message>
        <source>Earlier marks are replaced.</source>
        <translation>As marcas anteriores são substituídas.</translation>
    </message>
</context>
<context>
    <name>tarvin::ScanScreenTexts</name>
    <message>
        <source>Collecting Files...</source>
        <translation>Coletando arquivos…</translation>
    </message>
    <message>
        <source>Collecting Files: %1</source>
        <translation>Coletando arquivos: %1</translation>
    </message>
    <message>
        <source>Processing File: %1</source>
        <translation>Processando arquivo: %1</translation>
    </message>
    <message>
        <source>Waiting for: %1</source>
        <translation>Aguardando: %1</translation>
    </message>
    <message>
        <source>Elapsed Time: %1</source>
        <translation>Tempo decorrido: %1</translation>
    </message>
    <message>
        <source>Searching for duplicate files...</source>
        <translation>Procurando arquivos duplicados…</translation>
    </message>
    <message>
        <source>Searching for duplicate files</source>
        <translation>Procurando arquivos duplicados</translation>
    </message>
    <message>
        <source>No duplicates File found</source>
        <translation>Nenhum arquivo duplicado encontrado</translation>
    </message>
    <message>
        <source>There was not enough memory to finish the scan. The result is incomplete.</source>
        <translation>A memória não foi suficiente para concluir a análise. O resultado está incompleto.</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausar</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Continuar</translation>
    </message>
    <message>
        <source>%1 of %2 compared</source>
        <translation>%1 de %2 comparados</translation>
    </message>
    <message>
        <source>less than a minute left</source>
        <translation>resta menos de um minuto</translation>
    </message>
    <message>
        <source>about %1 hours left</source>
        <translation>restam cerca de %1 horas</translation>
    </message>
    <message>
        <source>about 1 minute left</source>
        <translation>resta cerca de 1 minuto</translation>
    </message>
    <message>
        <source>about %1 minutes left</source>
        <translation>restam cerca de %1 minutos</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Em pausa</translation>
    </message>
    <message>
        <source>Stopping…</source>
        <translation>Parando…</translation>
    </message>
    <message>
        <source>Waiting for the file in hand.</source>
        <translation>Aguardando o arquivo atual.</translation>
    </message>
</context>
<context>
    <name>tarvin::Screen</name>
    <message>
        <source>Home</source>
        <translation>Início</translation>
    </message>
</context>
<context>
    <name>tarvin::SearchField</name>
    <message>
        <source>Clear search</source>
        <translation>Limpar a busca</translation>
    </message>
</context>
<context>
    <name>tarvin::ShownNumbers</name>
    <message>
        <source>en</source>
        <comment>the code of the language of these texts</comment>
        <translation>pt_BR</translation>
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
        <translation>Seu aplicativo está atualizado</translation>
    </message>
    <message>
        <source>No update required.</source>
        <translation>Nenhuma atualização necessária.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>New update available (Tarvin Duplicate File Remover %1)</source>
        <translation>Nova versão disponível (Tarvin Duplicate File Remover %1)</translation>
    </message>
    <message>
        <source>Would you like to update this version?</source>
        <translation>Deseja atualizar esta versão?</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Atualizar</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>Lembrar mais tarde</translation>
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
        <translation>As fotos ocupam a maior parte do espaço do seu dispositivo. Muitas estão duplicadas. Limpe as fotos semelhantes para recuperar espaço.</translation>
    </message>
    <message>
        <source>Search Exact</source>
        <translation>Busca exata</translation>
    </message>
    <message>
        <source>Search photos that are similar enough</source>
        <translation>Buscar fotos tão semelhantes</translation>
    </message>
    <message>
        <source>to be one and the same file.</source>
        <translation>que são um único arquivo.</translation>
    </message>
    <message>
        <source>Search Similar</source>
        <translation>Busca de semelhantes</translation>
    </message>
    <message>
        <source>Search photos that are similar</source>
        <translation>Buscar fotos semelhantes</translation>
    </message>
</context>
</TS>
