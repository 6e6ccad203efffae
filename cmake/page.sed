# Pages for Doxygen: hidden comments go, links to what is no page (code, folders) or to a part of the same page become their
# text, links to a part of another page lead to the page, and pictures are looked for by their name alone.
/^<!--.*-->$/d
/^<!--/,/-->$/d
s/\[([^]]*)\]\((\.\.\/)?(examples|include|src|tests|benchmarks|LICENSE)[^)]*\)/\1/g
s/\]\(([A-Za-z./-]+\.md)#[^)]*\)/](\1)/g
s/\[([^]]*)\]\(#[^)]*\)/\1/g
s/!\[([^]]*)\]\([a-z/]*pictures\//![\1](/g
