# Links for the site: it has the examples beside its pages, and no page for a folder.
s#\[([^]]*)\]\([^)]*/\)#\1#g
s#\]\(\.\./#](#g
