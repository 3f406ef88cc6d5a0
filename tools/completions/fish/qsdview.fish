# Completion of qsdview for fish.
complete -c qsdview -l print-to -r -F -d 'Write the document instead of showing it'
complete -c qsdview -l display -x -d 'The X server'
complete -c qsdview -l geometry -x -d 'Size and place of the window'
complete -c qsdview -l version -d 'Print the version'
complete -c qsdview -s '?' -l help -d 'Print a summary of the options'
