@echo off
rem Makes TBVNonPara.clsNonPara known to 64-bit programs: to every user when run by an administrator, else to
rem this user. The files must stay where they are.
regsvr32.exe /s "%~dp0TBVNonPara.dll"
if errorlevel 1 goto failed
echo TBVNonPara.clsNonPara is registered.
exit /b 0
:failed
echo TBVNonPara.clsNonPara could not be registered.
exit /b 1
