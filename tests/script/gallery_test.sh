#!/usr/bin/env bash
# The pictures of the gallery are those of the dialog as its templates and its German make it now.
# shellcheck source=tests/script/support.sh
. "$(dirname "${BASH_SOURCE[0]}")/support.sh"

made_from=$root/docs/images/pages/made-from.sha256

"$root/script/lib/gallery-sources" >now
diff "$made_from" now || fail "the pictures of the gallery are out of date: run script/gallery"

# Every picture of it is there, and it shows all that are.
(cd "$root/docs" && ls images/pages/*.png images/pages/german/*.png) >there
sed -nE 's/.*\((images[^)]*)\).*\((images[^)]*)\).*/\1\n\2/p' "$root/docs/gallery.md" | sort >shown
diff <(sort there) shown || fail "docs/gallery.md shows other pictures than there are: run script/gallery"

# A changed template is seen.
cp -r --parents "$root"/{languages,resources,settings,dialog} .
echo '// Another layout.' >>"./$root/resources/dialogs/paper.rc"
"$root/script/lib/gallery-sources" "./$root" >changed
diff -q "$made_from" changed >/dev/null && fail "a changed template is not seen"
exit 0
