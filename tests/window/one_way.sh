#!/usr/bin/env bash
# one_way.sh SOURCES: wherever the toolkit guesses whether a text is markup, the text must come through
# window/tooltips.h; and only the program's own texts may use markup.
set -euo pipefail
cd "$1"
failed=0
# only PATTERN FILES TOLD
only() {
    local elsewhere
    elsewhere=$(grep -rnE "$1" --include='*.cpp' --include='*.h' . | grep -vE "^\./workspace/window/($2)" || true)
    [ -z "$elsewhere" ] && return
    echo "$3:" >&2
    echo "$elsewhere" >&2
    failed=1
}
only '\bQToolTip\b|\bset(ToolTip|StatusTip|WhatsThis)\(' 'tooltips\.(cpp|h):|.*->setToolTip\(tip\(' 'Not through tooltips.h'
only 'ToolTipRole' 'tooltips\.(cpp|h):|(camera_table|cut_table_model|edits_table|usage_table|file_dialogs|controls/picker)\.cpp:' 'Not known to be escaped'
only 'RichText|Markdown|[sS]etHtml|insertHtml|TextBrowser' 'tooltips\.(cpp|h):|(about|help)_window\.(cpp|h):|controls/link_label\.cpp:' 'Markup'
only 'QMessageBox::(information|question|warning|critical|about)\(|Qt::AutoText' 'theme\.cpp:' 'Guesses at markup'
exit "$failed"
