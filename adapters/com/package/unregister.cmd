@echo off
rem Takes back what register.cmd did: for every user when run by an administrator, and for this user.
regsvr32.exe /u /s "%~dp0TBVNonPara.dll"
if errorlevel 1 goto failed
echo TBVNonPara.clsNonPara is no longer registered.
exit /b 0
:failed
echo TBVNonPara.clsNonPara could not be unregistered.
exit /b 1
