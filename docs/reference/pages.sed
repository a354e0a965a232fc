# How Doxygen gets to read a page: links to files that are no pages of the reference become their names.
s/\[([^]]*)\]\((\.\.\/)+([a-z_]+\/|[A-Z]+\.md)[^)]*\)/`\1`/g
