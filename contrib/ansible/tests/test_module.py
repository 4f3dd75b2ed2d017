# The ostrel Ansible module's command lines and its reading of the tool's XML output.
import importlib.util
import os
import unittest

LIBRARY = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', 'library', 'ostrel.py')
location = importlib.util.spec_from_file_location('ostrel_module', LIBRARY)
ostrel = importlib.util.module_from_spec(location)
location.loader.exec_module(ostrel)


def task(**args):
    base = dict(command=['demo', 'widget', 'list'], params={}, secret_params={}, plugins=[],
                plugin_dirs=[])
    base.update(args)
    return base


def document(value_lines):
    """A document laid out as the tool's xml formatter writes it, with the given root lines."""
    return '\n'.join(['<?xml version="1.0"?>',
                      '<output xmlns:ostrel="urn:tindra:ostrel:output:1">',
                      '   <meta-data>',
                      '      <meta-data-field name="fields:X" value="A&#37;,B"/>',
                      '   </meta-data>',
                      '   <root>'] + value_lines + ['   </root>', '</output>', ''])


class CommandLineTest(unittest.TestCase):
    def argv(self, **args):
        return ostrel.build_invocation('/usr/bin/ostrel', task(**args))[0]

    def test_options_pass_their_values_unchanged_and_unexpanded(self):
        argv = self.argv(params={
            'name': '-x', 'note': '--other=1 $HOME ~ "q"\nü', 'empty': '', 'count': -5,
            'type': ['ext4', '-t', 7, True], 'all': True, 'quiet': False, 'skip': None,
            'n': 'plain'})
        self.assertEqual(argv, [
            '/usr/bin/ostrel', '--formatter=xml', 'demo', 'widget', 'list',
            '--all', '--count=-5', '--empty', '', '-n', 'plain', '--name=-x',
            '--note=--other=1 $HOME ~ "q"\nü',
            '--type=ext4', '--type=-t', '--type=7', '--type=true'])

    def test_plugins_come_before_the_path(self):
        argv = self.argv(command='system  hostname get', plugins=['/p/a.xml', '-odd.so'],
                         plugin_dirs=['/p/dir'])
        self.assertEqual(argv, ['/usr/bin/ostrel', '--formatter=xml', '--plugin-dir=/p/dir',
                                '--plugin=/p/a.xml', '--plugin=-odd.so',
                                'system', 'hostname', 'get'])
        self.assertEqual(self.argv(command=['storage', 'filesystem list'])[2:],
                         ['storage', 'filesystem', 'list'])

    def test_secrets_travel_on_standard_input_only(self):
        argv, stdin = ostrel.build_invocation('/usr/bin/ostrel', task(
            params={'label': 'x'}, secret_params={'password': 's3cr3t -x', 'p': '', 'k': None}))
        self.assertEqual(argv[-3:], ['--label=x', '-p', '--password'])
        self.assertNotIn('s3cr3t', ' '.join(argv))
        self.assertEqual(stdin, '\ns3cr3t -x\n')
        # Without secrets, standard input still ends at once rather than being inherited.
        self.assertEqual(ostrel.build_invocation('ostrel', task())[1], '\n')

    def test_unsafe_arguments_are_refused_with_the_offending_name(self):
        cases = [
            (dict(command=['demo', '--help']), "command word '--help'"),
            (dict(command='demo wid;get'), "command word 'wid;get'"),
            (dict(command=[' ']), 'command names no namespace or command'),
            (dict(params={'--name': 'x'}), "'--name' is not an option name"),
            (dict(params={'na me': True}), "'na me' is not an option name"),
            (dict(params={'2fa': 'x'}), "'2fa' is not an option name"),
            (dict(params={'n': '-x'}), "value '-x' of option 'n' looks like an option"),
            (dict(params={'n': '--long=1'}), "looks like an option"),
            (dict(params={'shape': {'a': 1}}), "value of option 'shape' must be a text"),
            (dict(params={'tags': [['a']]}), "value of option 'tags' must be a text"),
            (dict(secret_params={'password': 'a\nb'}), "secret option 'password' holds a line"),
            (dict(params={'password': 'a'}, secret_params={'password': 'b'}),
             'both in params and secret_params: password'),
        ]
        for args, message in cases:
            with self.subTest(args=args):
                with self.assertRaises(ostrel.UsageError) as caught:
                    ostrel.build_invocation('ostrel', task(**args))
                self.assertIn(message, str(caught.exception))
        # A short option may take a value that merely begins with a hyphen.
        self.assertEqual(self.argv(params={'n': '-5'})[-2:], ['-n', '-5'])

    def test_reading_commands_and_the_override(self):
        self.assertTrue(ostrel.is_reading(['storage', 'filesystem', 'list'], None))
        self.assertTrue(ostrel.is_reading(['system', 'hostname', 'get'], None))
        self.assertTrue(ostrel.is_reading(['demo', 'show'], None))
        self.assertFalse(ostrel.is_reading(['demo', 'widget', 'remove'], None))
        self.assertFalse(ostrel.is_reading(['demo', 'listing'], None))
        self.assertTrue(ostrel.is_reading(['demo', 'widget', 'check'], True))
        self.assertFalse(ostrel.is_reading(['demo', 'widget', 'list'], False))


class ErrorStreamTest(unittest.TestCase):
    def test_messages_under_the_heading_are_errors_and_earlier_lines_notices(self):
        stderr = ('Error loading plugin /p/b.xml skipping.  Error was: bad\n'
                  'Errors: \n'
                  "Invalid data 'x' for parameter count expected type Integer\n"
                  'Errors: \n'
                  '--name must have value\n')
        notices, errors = ostrel.split_stderr(stderr)
        self.assertEqual(notices, ['Error loading plugin /p/b.xml skipping.  Error was: bad'])
        self.assertEqual(errors, ["Invalid data 'x' for parameter count expected type Integer",
                                  'Errors: ', '--name must have value'])
        self.assertEqual(ostrel.split_stderr(''), ([], []))

    def test_failure_message_names_the_status_when_the_tool_gives_no_error(self):
        message = ostrel.failure_message(1, [], [], 'Available Commands: \nlist  List.\n')
        self.assertIn('status 1 without an error message', message)
        self.assertIn('Available Commands:', message)
        self.assertEqual(ostrel.failure_message(1, ['loading failed'], ['bad value'], ''),
                         'loading failed\nbad value')


class OutputConversionTest(unittest.TestCase):
    def test_types_follow_the_elements_not_the_text(self):
        data = ostrel.output_to_data(document([
            '      <structure typeName="Disk">',
            '         <field name="Empty">',
            '            <list type="string">',
            '            </list>',
            '         </field>',
            '         <field name="Flags">',
            '            <list type="boolean">',
            '                  <boolean>true</boolean>',
            '                  <boolean>false</boolean>',
            '            </list>',
            '         </field>',
            '         <field name="Label &amp; &quot;x&quot;">',
            '            <string>a&lt;b &amp; &quot;c&quot; 50&#37; &apos;q&apos; &gt;</string>',
            '         </field>',
            '         <field name="Matrix">',
            '            <list type="list">',
            '                  <list type="integer">',
            '                        <integer>-9223372036854775808</integer>',
            '                        <integer>42</integer>',
            '                  </list>',
            '            </list>',
            '         </field>',
            '         <field name="Number">',
            '            <string>0042</string>',
            '         </field>',
            '         <field name="Text">',
            '            <string>  ünï 汉字\r\n\x01line two\t </string>',
            '         </field>',
            '         <field name="Blank">',
            '            <string></string>',
            '         </field>',
            '      </structure>']))
        self.assertEqual(data, {
            'Empty': [],
            'Flags': [True, False],
            'Label & "x"': 'a<b & "c" 50% \'q\' >',
            'Matrix': [[-9223372036854775808, 42]],
            'Number': '0042',
            'Text': '  ünï 汉字\r\n\x01line two\t ',
            'Blank': '',
        })

    def test_lists_of_structures_and_scalar_roots(self):
        data = ostrel.output_to_data(document([
            '      <list type="structure">',
            '            <structure typeName="FileSystem">',
            '               <field name="Mount">',
            '                  <string>/</string>',
            '               </field>',
            '               <field name="ReadOnly">',
            '                  <boolean>false</boolean>',
            '               </field>',
            '            </structure>',
            '            <structure typeName="FileSystem">',
            '               <field name="Mount">',
            '                  <string>/boot</string>',
            '               </field>',
            '               <field name="ReadOnly">',
            '                  <boolean>true</boolean>',
            '               </field>',
            '            </structure>',
            '      </list>']))
        self.assertEqual(data, [{'Mount': '/', 'ReadOnly': False},
                                {'Mount': '/boot', 'ReadOnly': True}])
        self.assertEqual(ostrel.output_to_data(document(['      <integer>7</integer>'])), 7)
        self.assertEqual(ostrel.output_to_data(document(['      <string>7</string>'])), '7')

    def test_reported_and_malformed_values_are_errors(self):
        field = ['      <structure typeName="T">', '         <field name="F">']
        end = ['         </field>', '      </structure>']
        cases = [
            (field + ['<!-- Error reading a bool -->'] + end, 'Error reading a bool'),
            (field + ['Error reading a int'] + end, 'Error reading a int'),
            (field + end, "field 'F' holds 0 values"),
            (['Error Only simple int, bool, string and struct output supported'],
             'Error Only simple int'),
            (['      <boolean>True</boolean>'], "boolean 'True'"),
            (['      <integer>4.5</integer>'], "integer '4.5'"),
            (['      <integer></integer>'], "integer ''"),
            (['      <list type="integer"><string>1</string></list>'],
             "list of 'integer' holds 'string'"),
            (['      <list type="">', '      </list>'], "unknown element type ''"),
            (['      <float>1.5</float>'], "unknown value element 'float'"),
            (['      <string>a <b/></string>'], "'string' holds elements"),
            (['      <string>a & b</string>'], 'unescaped &'),
            (['      <string>a</integer>'], "unexpected end tag 'integer'"),
            (['      <structure typeName="T">', '<value/>', '</structure>'],
             "holds 'value' instead of a named field"),
            (['      <string>1</string>', '      <string>2</string>'], 'root holds 2 values'),
        ]
        for lines, message in cases:
            with self.subTest(lines=lines):
                with self.assertRaises(ostrel.OutputError) as caught:
                    ostrel.output_to_data(document(lines))
                self.assertIn(message, str(caught.exception))
        with self.assertRaises(ostrel.OutputError):
            ostrel.output_to_data('<?xml version="1.0"?>\n<output>\n   <root>\n')

    def test_document_starts_after_secret_prompts(self):
        stdout = "Enter value for 'password': \n" + document(['      <string>x</string>'])
        self.assertEqual(ostrel.output_to_data(ostrel.xml_document(stdout)), 'x')
        self.assertIsNone(ostrel.xml_document('Available Namespaces: \n'))


if __name__ == '__main__':
    unittest.main()
