# Prepares a page for Doxygen. Removes hidden comments, replaces links to code, folders and sections of the same page with
# their text, shortens links to sections of other pages to the page, and limits pictures to the width of the page.
/^<!--.*-->$/d
/^<!--/,/-->$/d
s/\[([^]]*)\]\((\.\.\/)?(examples|include|src|kit|tests|benchmarks|LICENSE)[^)]*\)/\1/g
s/\]\(([A-Za-z./-]+\.md)#[^)]*\)/](\1)/g
s/\[([^]]*)\]\(#[^)]*\)/\1/g
s/!\[([^]]*)\]\([a-z/]*pictures\/([^)]*)\)/<img src="\2" alt="\1" style="max-width: 100%">/
