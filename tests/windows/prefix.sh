# Sourced with $WINEPREFIX set. start_windows LINK creates a fresh wine prefix with COM5 at the device LINK; end_windows
# ends every program in it.
export WINEDEBUG=-all LC_ALL=C.UTF-8

start_windows() {
  [ ! -d "$WINEPREFIX" ] || end_windows
  rm -rf "$WINEPREFIX"
  mkdir -p "$WINEPREFIX"
  # Silenced: wineserver writes thousands of lines when it is ended.
  wineserver -p600 >/dev/null 2>&1
  wine wineboot -i >/dev/null 2>&1
  # Never COM1: wine gives it to the machine's first serial port, often its console.
  wine reg add 'HKLM\Software\Wine\Ports' /v COM5 /t REG_SZ /d "$1" /f >/dev/null 2>&1
  # Replacements for the Windows fonts; otherwise wine takes the first font it finds.
  local font
  for font in 'Segoe UI' 'Tahoma' 'MS Shell Dlg' 'MS Shell Dlg 2' 'MS Sans Serif'; do
    wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$font" /t REG_SZ /d 'DejaVu Sans' /f >/dev/null 2>&1
  done
  wineserver -k -w >/dev/null 2>&1 || true
  wineserver -p600 >/dev/null 2>&1
}

end_windows() { wineserver -k -w >/dev/null 2>&1 || true; }
