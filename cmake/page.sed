# Pages for Doxygen: hidden comments go, links to what is no page (code, folders) or to a part of the same page become their
# text, links to a part of another page lead to the page, and pictures are as wide as their page at most.
/^<!--.*-->$/d
/^<!--/,/-->$/d
s/\[([^]]*)\]\((\.\.\/)?(examples|include|src|tests|benchmarks|LICENSE)[^)]*\)/\1/g
s/\]\(([A-Za-z./-]+\.md)#[^)]*\)/](\1)/g
s/\[([^]]*)\]\(#[^)]*\)/\1/g
s/!\[([^]]*)\]\([a-z/]*pictures\/([^)]*)\)/<img src="\2" alt="\1" style="max-width: 100%">/
