# Pages for Doxygen: hidden comments go, links to what is no page (code, folders) become their text, and links to a part of
# a page lead to the page.
/^<!--.*-->$/d
/^<!--/,/-->$/d
s/\[([^]]*)\]\((\.\.\/)?(examples|include|src|tests|benchmarks|LICENSE)[^)]*\)/\1/g
s/\]\(([A-Za-z./-]+\.md)#[^)]*\)/](\1)/g
