# Installs, updates and removes the Gateway with the set-up program on a real Windows. The workflow
# "Windows" runs it; tests/package/installer tests more, but under Wine.
#
#   tests/package/installer.ps1 x64|x86
#
# To be run from the project's folder, as administrator, on a machine without a Gateway, with the
# packages in build\package.
param([ValidateSet('x64', 'x86')][string]$Machine = 'x64')
$ErrorActionPreference = 'Stop'

$suffix = if ($Machine -eq 'x86') { '-x86' } else { '' }
$setUp = Get-Item "build\package\gateway3-*-setup$suffix.exe"
$version = $setUp.Name -replace '^gateway3-(.*)-setup.*$', '$1'
$key = 'HKCU:\Software\Microsoft\Windows\CurrentVersion\Uninstall\QuillmarkSuite3Gateway'
$folder = "$env:LOCALAPPDATA\Programs\Quillmark Suite 3"
$menu = [Environment]::GetFolderPath('Programs') + '\Quillmark Suite 3'

function Assert([string]$Text, [bool]$Holds) {
    if (!$Holds) { throw "It does not hold: $Text" }
    Write-Output "ok: $Text"
}

function Start-SetUp([string]$Program, [string]$Options) {
    (Start-Process $Program -ArgumentList $Options -Wait -PassThru).ExitCode
}

Assert 'a silent set-up succeeds' ((Start-SetUp $setUp '/S') -eq 0)
Assert 'the program is there' (Test-Path "$folder\gateway3.exe")
Assert 'the handbook is there' (Test-Path "$folder\help\gateway-handbook.html")
Assert 'the Start menu has it' (Test-Path "$menu\Quillmark Suite 3 Gateway.lnk")
Assert 'the list of installed programs has it' `
    ((Get-ItemProperty $key).DisplayVersion -eq $version)

$gateway = Start-Process "$folder\gateway3.exe" -PassThru
try {
    # The splash comes first; the window stays.
    Assert 'the program shows a window' $gateway.WaitForInputIdle(30000)
    Assert 'set-up refuses while the program runs' ((Start-SetUp $setUp '/S') -eq 3)
} finally {
    $gateway | Stop-Process -Force
    $gateway.WaitForExit()
}
'"Fire weather","http://www.example.com/"' | Set-Content "$folder\QMKWebList.txt"
Assert 'an update succeeds' ((Start-SetUp $setUp '/S') -eq 0)
Assert 'an update keeps the lists' ((Get-Content "$folder\QMKWebList.txt") -match 'Fire weather')

$task = 'QuillmarkGatewaySetUpTest'
$action = New-ScheduledTaskAction -Execute $setUp.FullName -Argument '/S'
Register-ScheduledTask $task -Action $action -User 'SYSTEM' -Force | Out-Null
try {
    Start-ScheduledTask $task
    $limit = (Get-Date).AddMinutes(2)
    do {
        Start-Sleep -Milliseconds 500
        $result = (Get-ScheduledTaskInfo $task).LastTaskResult
        # 267009: it runs; 267011: it has not run yet.
    } while ($result -in 267009, 267011 -and (Get-Date) -lt $limit)
} finally {
    Unregister-ScheduledTask $task -Confirm:$false
}
Assert "set-up refuses an account of the system ($result)" ($result -eq 5)

# The uninstaller starts a copy of itself, for which Start-Process waits, too.
Start-SetUp "$folder\uninstall-gateway3.exe" '/S' | Out-Null
Assert 'the program is removed' (!(Test-Path "$folder\gateway3.exe"))
Assert 'the entry in the list of installed programs is removed' (!(Test-Path $key))
Assert 'the lists stay' (Test-Path "$folder\QMKWebList.txt")
Remove-Item -Recurse $folder
