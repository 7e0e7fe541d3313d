@echo off
rem Toglie la registrazione delle due DLL. I file restano.
rem
rem   rimuovi             per tutti gli utenti: eseguire come amministratore
rem   rimuovi /utente     solo per l'utente corrente: non serve un amministratore
setlocal
set azione=unregister
set opzione=
if /i "%~1"=="/utente" set opzione=--user
set esito=0
if /i "%PROCESSOR_ARCHITECTURE%%PROCESSOR_ARCHITEW6432%"=="x86" goto bit32
"%~dp0x64\workbench.exe" %azione% %opzione% || set esito=1
:bit32
"%~dp0x86\workbench.exe" %azione% %opzione% || set esito=1
if %esito%==0 echo KEBU_ANAGKELMORIA: registrazione tolta.
if not %esito%==0 echo KEBU_ANAGKELMORIA: registrazione non tolta, vedere il messaggio sopra.
if not %esito%==0 if "%~1"=="" pause
exit /b %esito%
