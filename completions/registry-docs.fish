# Completes the command line of registry-docs in fish.

set -l command complete -c registry-docs
set -l no_action 'not __fish_contains_opt -s h check write list print-layout print-model help version; and not __fish_seen_subcommand_from init'
set -l init '__fish_seen_subcommand_from init'
set -l no_init 'not __fish_seen_subcommand_from init'

$command -f
$command -n $no_action -a init -d 'Begin a registry'
$command -n $init -l markers -r -F -d 'A file that gets a block: FILE[:LAYOUT]'
$command -n $init -l heading -x -d 'The heading that the block stands below'
$command -n $init -l server -x -d 'The server among several'
$command -n $init -l dry-run -d 'Show what would be written'
$command -n $init -s h -l help -d 'Print a summary of the options'
$command -n $no_action -l check -d 'Name the files that are not current; write nothing'
$command -n $no_action -l write -d 'Rewrite the files that are not current'
$command -n $no_action -l list -d 'Show every generated block'
$command -n $no_action -l print-layout -x -a 'count list prompts reference resources tool tools' -d 'Print a layout'
$command -n $no_action -l print-model -d 'Print what layouts see'
$command -n $no_action -s h -l help -d 'Print a summary of the options'
$command -n $no_action -l version -d 'Print the version'

set -l checks '__fish_contains_opt check'
$command -n $checks -l diff -d 'Show what --write would change'
$command -n $checks -l format -x -a 'text json github' -d 'The form of the problems'
$command -n $checks -l color -x -a 'auto always never' -d 'When to colour the diff'
$command -n '__fish_contains_opt write' -l exit-code -d 'End with 1 when a file was written'
$command -n '__fish_contains_opt check write' -l quiet -d 'Print nothing but errors'
$command -l root -x -a '(__fish_complete_directories)' -d 'The repository'
$command -n $no_init -l registry -r -F -d 'The registry file'
$command -n $no_init -l tools -r -F -d 'A saved answer of the server'
$command -n $no_init -l save-tools -r -F -d 'Write the answer of the server down'
$command -n $checks -l fail-on -x -a 'any breaking' -d 'What counts in the exit status'
$command -l timeout -x -d 'Seconds for the answer of the server'
$command -n $no_init -l offline -d 'Take the snapshots of the servers'
$command -n $no_init -l strict -d 'What cannot be read of a schema is an error'
$command -n $no_init -l jobs -x -d 'Servers that are asked at once'
$command -n $no_init -l recursive -d 'All repositories below'
$command -n $no_init -x -a '(__fish_complete_directories)'

# Its other name.
complete -c gen_registry_docs -w registry-docs
