# Completion of qsdps-window for fish.
complete -c qsdps-window -f -a 'root' -d 'The whole screen'
complete -c qsdps-window -s q -d 'Do not warn of what is left out'
complete -c qsdps-window -l version -d 'Print the version'
complete -c qsdps-window -s '?' -l help -d 'Print a summary of the options'
