#!/usr/bin/python3
# -*- coding: utf-8 -*-
# Runs one ostrel command on a managed host and returns its result as native data.

from __future__ import absolute_import, division, print_function

__metaclass__ = type

DOCUMENTATION = r'''
---
module: ostrel
short_description: Run an ostrel command and return its typed result
description:
  - Runs one command of the C(ostrel) administration tool on the managed host, with the
    command's options checked by the tool itself, and returns the command's result as native
    data (mappings, lists, integers, booleans and strings).
  - The tool is run without a shell, from an argument vector. Its XML output is read by its
    element types, so an integer field stays an integer and a text that looks like a number
    stays a string.
  - The task fails with the tool's own messages when the tool reports errors or ends with a
    non-zero status.
  - In check mode, only commands that read (C(list), C(get), C(show), or any command marked
    I(read_only)) are run; the others are reported as would-change and not run.
version_added: "0.1.0"
author:
  - The ostrel developers
requirements:
  - The C(ostrel) tool (Debian package C(ostrel)) on the managed host.
options:
  command:
    description:
      - The namespace words and the command word, as a list or as one text separated by blanks,
        for example C(system hostname get) or C([storage, filesystem, list]).
    type: list
    elements: str
    required: true
  params:
    description:
      - The command's options, by long name without the leading hyphens (a one-letter name is
        taken as the short name).
      - A text, number or list value is passed as the option's value; a list passes the option
        once for each item, for the C(-list) kinds.
      - C(true) passes the option without value (a flag), C(false) or C(null) leaves it out. For
        an option of kind C(bool), write the value as quoted text, such as C('true') or C('no').
      - Values that begin with a hyphen, or hold blanks, quotes or line breaks, are passed
        unchanged; nothing is expanded.
      - These values are shown with C(-v) and in the returned I(cmd). Give secrets in
        I(secret_params).
    type: dict
    default: {}
  secret_params:
    description:
      - Options declared secret by the command (such as passwords), by name, with text values.
      - They never reach the command line, the returned data or the logs; the tool reads them
        on its standard input, one line each, the way it asks for secrets at the terminal.
      - A value may not hold a line break.
    type: dict
    default: {}
  plugins:
    description:
      - Plug-in files on the managed host (descriptor C(.xml) files or shared objects) to load
        for this call, as C(--plugin) does.
    type: list
    elements: path
    default: []
  plugin_dirs:
    description:
      - Directories on the managed host whose plug-ins are loaded for this call, as
        C(--plugin-dir) does.
    type: list
    elements: path
    default: []
  default_plugins:
    description:
      - Whether the tool loads the plug-ins installed in its default directories. With C(false)
        only its built-in commands and I(plugins) and I(plugin_dirs) are available.
    type: bool
    default: true
  read_only:
    description:
      - Whether the command only reads. Such a command runs in check mode and reports no change.
      - By default, commands named C(list), C(get) or C(show) read and every other command is
        taken to change the host.
    type: bool
  ostrel_path:
    description:
      - The tool to run on the managed host. By default C(ostrel) is looked up on the C(PATH).
    type: path
notes:
  - Uses the tool's C(xml) output format whatever the command's default format is.
  - A plug-in that fails to load is reported as a warning; when the command came from that
    plug-in, the task fails with the tool's messages.
seealso:
  - name: ostrel(1)
    description: The manual page of the tool, with every output format and exit status.
'''

EXAMPLES = r'''
- name: Read the host name
  ostrel:
    command: system hostname get
  register: host

- name: Print it
  ansible.builtin.debug:
    msg: "{{ host.result.Name }}"

- name: List only ext4 and xfs file systems
  ostrel:
    command: [storage, filesystem, list]
    params:
      type: [ext4, xfs]
  register: filesystems

- name: Show the file systems that are more than 90 per cent full
  ansible.builtin.debug:
    msg: "{{ filesystems.result | selectattr('Use', 'gt', 90) | map(attribute='Mount') | list }}"

- name: Run a command from a plug-in that is not installed, with a secret option
  ostrel:
    command: vault key unlock
    params:
      label: backup
    secret_params:
      passphrase: "{{ vault_passphrase }}"
    plugins: [/opt/site/vault.xml]
    default_plugins: false
'''

RETURN = r'''
result:
  description:
    - The command's result. A structure becomes a mapping from field names to values, a list
      becomes a list, and integers, booleans and strings keep their type.
    - Null when the command was not run (check mode).
  returned: always
  type: raw
  sample: {"Name": "web01", "Domain": "", "Configured": "web01"}
errors:
  description: The error messages the tool printed, one per item, in its own words.
  returned: always
  type: list
  elements: str
  sample: ["Invalid data 'x' for parameter count expected type Integer"]
cmd:
  description: The argument vector that was run; secret values are not part of it.
  returned: when the tool was found
  type: list
  elements: str
  sample: ["/usr/bin/ostrel", "--formatter=xml", "storage", "filesystem", "list", "--type=ext4"]
rc:
  description: The exit status of the tool.
  returned: when the tool was run
  type: int
  sample: 0
'''

import os
import re

from ansible.module_utils.basic import AnsibleModule

READING_COMMANDS = frozenset(['list', 'get', 'show'])

# The tool's option parser takes a word as an option only in these shapes; anything else is a
# value or a path word.
OPTION_WORD = re.compile(r'^(-[a-zA-Z]|--([a-zA-Z][a-zA-Z0-9-]+)(=.+)?)$', re.DOTALL)
LONG_NAME = re.compile(r'^[a-zA-Z][a-zA-Z0-9-]+$')
SHORT_NAME = re.compile(r'^[a-zA-Z]$')
PATH_WORD = re.compile(r'^[a-zA-Z0-9]+$')

ERRORS_HEADING = 'Errors: '


class UsageError(Exception):
    """A task argument that cannot be turned into a safe command line."""


class OutputError(Exception):
    """XML output that does not follow the tool's layout."""


# ---------------------------------------------------------------------------------------------
# Command line


def command_words(command):
    if isinstance(command, str):
        command = [command]
    words = []
    for item in command:
        words.extend(str(item).split())
    if not words:
        raise UsageError('command names no namespace or command')
    for word in words:
        if not PATH_WORD.match(word):
            raise UsageError("command word '%s' is not a namespace or command name" % word)
    return words


def option_value_text(name, value):
    if isinstance(value, bool):
        return 'true' if value else 'false'
    if isinstance(value, (int, float, str)):
        return str(value)
    raise UsageError("value of option '%s' must be a text, a number or a list of them, not %s"
                     % (name, type(value).__name__))


def option_words(name, value):
    """The words that pass one value: attached to a long name, so that a value which looks like
    an option is still read as the value; separate after a short name, which has no attached
    form; separate when empty, since the attached form needs a value."""
    if LONG_NAME.match(name):
        if value == '':
            return ['--' + name, '']
        return ['--%s=%s' % (name, value)]
    if SHORT_NAME.match(name):
        if OPTION_WORD.match(value):
            raise UsageError("value '%s' of option '%s' looks like an option; give the option by "
                             "its long name" % (value, name))
        return ['-' + name, value]
    raise UsageError("'%s' is not an option name (letters, digits and hyphens, beginning with a "
                     "letter, without leading hyphens)" % name)


def option_flag(name):
    if LONG_NAME.match(name):
        return ['--' + name]
    if SHORT_NAME.match(name):
        return ['-' + name]
    raise UsageError("'%s' is not an option name (letters, digits and hyphens, beginning with a "
                     "letter, without leading hyphens)" % name)


def parameter_words(params):
    words = []
    for name in sorted(params):
        value = params[name]
        if value is None or value is False:
            continue
        if value is True:
            words.extend(option_flag(name))
        elif isinstance(value, (list, tuple)):
            for item in value:
                words.extend(option_words(name, option_value_text(name, item)))
        else:
            words.extend(option_words(name, option_value_text(name, value)))
    return words


def secret_words_and_input(secret_params):
    """Each secret option is given without value, which makes the tool read it from standard
    input; the values thus never appear in the argument vector."""
    words = []
    lines = []
    for name in sorted(secret_params):
        value = secret_params[name]
        if value is None:
            continue
        text = option_value_text(name, value)
        if '\n' in text or '\r' in text:
            raise UsageError("secret option '%s' holds a line break, which the tool cannot read"
                             % name)
        words.extend(option_flag(name))
        lines.append(text)
    # Standard input always carries at least one line and is closed after it: a prompt the
    # task did not foresee reads an empty line instead of waiting for a terminal.
    return words, ''.join(line + '\n' for line in lines) or '\n'


def dispatcher_words(plugins, plugin_dirs):
    words = ['--formatter=xml']
    words.extend('--plugin-dir=' + path for path in plugin_dirs if path)
    words.extend('--plugin=' + path for path in plugins if path)
    return words


def build_invocation(tool, args):
    """The argument vector and the standard input for one call."""
    overlap = sorted(set(args['params']) & set(args['secret_params']))
    if overlap:
        raise UsageError('option given both in params and secret_params: ' + ', '.join(overlap))
    secret_words, stdin = secret_words_and_input(args['secret_params'])
    argv = [tool]
    argv.extend(dispatcher_words(args['plugins'], args['plugin_dirs']))
    argv.extend(command_words(args['command']))
    argv.extend(parameter_words(args['params']))
    argv.extend(secret_words)
    return argv, stdin


def is_reading(words, read_only):
    if read_only is not None:
        return read_only
    return words[-1] in READING_COMMANDS


# ---------------------------------------------------------------------------------------------
# Error stream


def split_stderr(stderr):
    """Splits the tool's standard error into what came before the "Errors: " heading (plug-in
    loading problems and the like) and the error messages under it."""
    notices = []
    errors = []
    target = notices
    for line in stderr.splitlines():
        if line == ERRORS_HEADING and target is notices:
            target = errors
        elif line.strip():
            target.append(line)
    return notices, errors


# ---------------------------------------------------------------------------------------------
# XML output
#
# The tool writes its XML output as text, escaping only & < > % " and ' in data and passing
# every other character through, control characters and carriage returns included. A general
# XML parser would reject some of those and normalise others, so the layout is read here.

TOKEN = re.compile(
    r'<\?.*?\?>'
    r'|<!--(?P<comment>.*?)-->'
    r'|<(?P<close>/?)(?P<name>[A-Za-z][\w:.-]*)(?P<attrs>(?:\s+[^\s=/>]+="[^"]*")*)\s*(?P<empty>/?)>'
    r'|(?P<text>[^<]+)'
    r'|(?P<stray><)',
    re.DOTALL)
ATTRIBUTE = re.compile(r'([^\s=/>]+)="([^"]*)"')
REFERENCE = re.compile(r'&(?:(amp|lt|gt|quot|apos)|#([0-9]+)|#x([0-9a-fA-F]+));')
NAMED_REFERENCES = {'amp': '&', 'lt': '<', 'gt': '>', 'quot': '"', 'apos': "'"}
LIST_ELEMENT_TYPES = ('boolean', 'integer', 'string', 'structure', 'list')
INTEGER = re.compile(r'^-?[0-9]+$')


class Element:
    def __init__(self, name, attrs):
        self.name = name
        self.attrs = attrs
        self.children = []
        self.text = []

    def own_text(self):
        return ''.join(self.text)

    def stray_text(self):
        return ' '.join(piece.strip() for piece in self.text if piece.strip())


def unescape(text):
    if '&' not in text:
        return text

    def replace(match):
        if match.group(1):
            return NAMED_REFERENCES[match.group(1)]
        return chr(int(match.group(2)) if match.group(2) else int(match.group(3), 16))

    result = REFERENCE.sub(replace, text)
    if '&' in REFERENCE.sub('', text):
        raise OutputError('unescaped & in the XML output')
    return result


def parse_attributes(text):
    return {name: unescape(value) for name, value in ATTRIBUTE.findall(text or '')}


def read_tree(document):
    """Reads the document into elements; returns the document element."""
    top = Element('', {})
    stack = [top]
    for match in TOKEN.finditer(document):
        if match.group('stray'):
            raise OutputError('malformed markup in the XML output')
        if match.group('comment') is not None:
            raise OutputError('the tool reported' + match.group('comment').rstrip())
        if match.group('text') is not None:
            stack[-1].text.append(unescape(match.group('text')))
        elif match.group('name'):
            name = match.group('name')
            if match.group('close'):
                if len(stack) < 2 or stack[-1].name != name:
                    raise OutputError("unexpected end tag '%s' in the XML output" % name)
                stack.pop()
                continue
            element = Element(name, parse_attributes(match.group('attrs')))
            stack[-1].children.append(element)
            if not match.group('empty'):
                stack.append(element)
    if len(stack) != 1:
        raise OutputError("element '%s' is not closed in the XML output" % stack[-1].name)
    if len(top.children) != 1 or top.stray_text():
        raise OutputError('the XML output holds no single output element')
    return top.children[0]


def expect_no_text(element, what):
    stray = element.stray_text()
    if stray:
        raise OutputError('%s holds text instead of a value: %s' % (what, stray))


def single_value(element, what):
    expect_no_text(element, what)
    if len(element.children) != 1:
        raise OutputError('%s holds %d values instead of one' % (what, len(element.children)))
    return element.children[0]


def convert_leaf(element):
    if element.children:
        raise OutputError("element '%s' holds elements instead of text" % element.name)
    text = element.own_text()
    if element.name == 'string':
        return text
    if element.name == 'integer':
        if not INTEGER.match(text):
            raise OutputError("integer '%s' is not a decimal number" % text)
        return int(text)
    if text not in ('true', 'false'):
        raise OutputError("boolean '%s' is neither true nor false" % text)
    return text == 'true'


def convert_structure(element):
    what = "structure '%s'" % element.attrs.get('typeName', '')
    expect_no_text(element, what)
    fields = {}
    for field in element.children:
        if field.name != 'field' or 'name' not in field.attrs:
            raise OutputError("%s holds '%s' instead of a named field" % (what, field.name))
        name = field.attrs['name']
        fields[name] = convert_value(single_value(field, "field '%s'" % name))
    return fields


def convert_list(element):
    item_type = element.attrs.get('type', '')
    expect_no_text(element, "list of '%s'" % item_type)
    if item_type not in LIST_ELEMENT_TYPES:
        raise OutputError("list of unknown element type '%s'" % item_type)
    items = []
    for item in element.children:
        if item.name != item_type:
            raise OutputError("list of '%s' holds '%s'" % (item_type, item.name))
        items.append(convert_value(item))
    return items


def convert_value(element):
    if element.name in ('string', 'integer', 'boolean'):
        return convert_leaf(element)
    if element.name == 'structure':
        return convert_structure(element)
    if element.name == 'list':
        return convert_list(element)
    raise OutputError("unknown value element '%s' in the XML output" % element.name)


def output_to_data(document):
    """The value under root of the tool's XML output, as native data."""
    output = read_tree(document)
    if output.name != 'output':
        raise OutputError("the XML output's document element is '%s', not output" % output.name)
    roots = [child for child in output.children if child.name == 'root']
    if len(roots) != 1:
        raise OutputError('the XML output holds %d root elements instead of one' % len(roots))
    return convert_value(single_value(roots[0], 'root'))


def xml_document(stdout):
    """The XML document in standard output, after the prompts of secret options."""
    start = stdout.find('<?xml')
    if start < 0:
        return None
    return stdout[start:]


# ---------------------------------------------------------------------------------------------
# Module


def find_tool(module):
    path = module.params['ostrel_path']
    if path:
        if not (os.path.isfile(path) and os.access(path, os.X_OK)):
            module.fail_json(msg='ostrel_path %s is not an executable file on this host' % path,
                             result=None, errors=[])
        return path
    found = module.get_bin_path('ostrel')
    if not found:
        module.fail_json(msg='ostrel is not installed on this host (not found on PATH %s); '
                             'install the ostrel package or set ostrel_path'
                             % os.environ.get('PATH', ''), result=None, errors=[])
    return found


def failure_message(rc, notices, errors, stdout):
    if errors:
        return '\n'.join(notices + errors)
    text = stdout.strip()
    detail = ('; its output: ' + text[:2000]) if text else ''
    return '\n'.join(notices + ['ostrel ended with status %d without an error message%s'
                                % (rc, detail)])


def run(module, argv, stdin, reading):
    environ = {}
    if not module.params['default_plugins']:
        environ['OSTREL_SKIP_DEFAULT_PLUGINS'] = '1'
    rc, out, err = module.run_command(argv, data=stdin, binary_data=True, encoding=None,
                                      expand_user_and_vars=False, environ_update=environ)
    stdout = out.decode('utf-8', 'replace')
    notices, errors = split_stderr(err.decode('utf-8', 'replace'))
    for notice in notices:
        module.warn(notice)
    common = dict(cmd=argv, rc=rc, errors=errors, result=None, changed=False)
    if rc != 0 or errors:
        module.fail_json(msg=failure_message(rc, notices, errors, stdout), **common)
    document = xml_document(stdout)
    if document is None:
        module.fail_json(msg='ostrel printed no XML output', **common)
    try:
        common['result'] = output_to_data(document)
    except OutputError as error:
        module.fail_json(msg='Unable to read the output of ostrel: %s' % error, **common)
    common['changed'] = not reading
    module.exit_json(**common)


def argument_spec():
    return dict(
        command=dict(type='list', elements='str', required=True),
        params=dict(type='dict', default={}),
        secret_params=dict(type='dict', default={}, no_log=True),
        plugins=dict(type='list', elements='path', default=[]),
        plugin_dirs=dict(type='list', elements='path', default=[]),
        default_plugins=dict(type='bool', default=True),
        read_only=dict(type='bool'),
        ostrel_path=dict(type='path'),
    )


def main():
    module = AnsibleModule(argument_spec=argument_spec(), supports_check_mode=True)
    tool = find_tool(module)
    try:
        argv, stdin = build_invocation(tool, module.params)
        reading = is_reading(command_words(module.params['command']), module.params['read_only'])
    except UsageError as error:
        module.fail_json(msg=str(error), result=None, errors=[])
    if module.check_mode and not reading:
        module.exit_json(changed=True, cmd=argv, errors=[], result=None,
                         msg='Not run in check mode: the command may change the host')
    run(module, argv, stdin, reading)


if __name__ == '__main__':
    main()
