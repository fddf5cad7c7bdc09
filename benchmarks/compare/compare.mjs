// What composing a long condition costs in two query builders of the npm registry, and nested blocks
// in a third package, without a browser: the state behind their forms is driven by the calls that
// their forms make, and drawing is left out. One line of JSON for each package.
//
// Both keep what a person chose apart from drawing it, are still published, and are the two most
// downloaded of their kind:
// @react-querybuilder/core is the logic of react-querybuilder, the first of them.
// @react-awesome-query-builder/core is the logic of react-awesome-query-builder, the second.
// blockly composes programs of blocks, and is the most used of its kind.
//
// One addition is four steps, as in both forms: "add rule", then its field, its operator, its
// value. The value comes whole, as pasted, not key by key. Every condition is joined by "and".
import {createRequire} from 'node:module';

import {
  createQueryActions,
  createRule,
  defaultCombinators,
  defaultOperators,
  formatQuery,
  getMatchModesUtil,
  getRuleDefaultValue,
  getValueSourcesUtil,
  prepareOptionList,
  prepareRuleGroup,
  resolveDefaultOperator,
  resolveOperatorList,
  resolveValueEditorType,
  resolveValueList,
} from '@react-querybuilder/core';

const require = createRequire(import.meta.url);
// Its modules for import name folders, which Node resolves for require only.
const {CoreConfig, TreeActions, TreeStore, Utils} = require('@react-awesome-query-builder/core');

const Blockly = require('blockly');
const {javascriptGenerator} = require('blockly/javascript');

const kTable = 'T1234567';
const kFields = 50;
const kConditions = 1000;
const kWarmUp = 100;
const kTexts = 9;
const kPreviewEvery = 20;
const kOperators = ['=', '<>', '<', '<=', '>', '>='];

const fieldName = (number) => `FIELD_NAME_${number + 1}`;

function makeConditions(count) {
  return Array.from({length: count}, (_, i) => ({
    field: `${kTable}.${fieldName(i % kFields)}`,
    operator: kOperators[i % kOperators.length],
    value: 1000 + i,
  }));
}

// The component's hooks hand these functions to createRule and createQueryActions, with the
// properties that an application which gives only the fields leaves at their defaults.
class QueryBuilder {
  static package = '@react-querybuilder/core';
  static operatorNames = {'<>': '!='};

  constructor() {
    const {optionList: fields, optionsMap: fieldMap} = prepareOptionList({
      optionList: Array.from({length: kFields}, (_, i) => {
        const name = `${kTable}.${fieldName(i)}`;
        return {name, label: name, inputType: 'number'};
      }),
      autoSelectOption: true,
    });
    const {optionList: combinators} = prepareOptionList({
      optionList: defaultCombinators,
      autoSelectOption: true,
    });
    const {optionList: operators} = prepareOptionList({
      optionList: defaultOperators,
      autoSelectOption: true,
    });
    const getOperators = (field, {fieldData}) =>
      resolveOperatorList({field, fieldData, operators, autoSelectOption: true});
    const rules = {
      getRuleDefaultOperator: (field) =>
        resolveDefaultOperator({field, fieldData: fieldMap[field], getOperators}),
      getValueSources: (field, operator) => getValueSourcesUtil(fieldMap[field], operator),
      getMatchModes: (field) => getMatchModesUtil(fieldMap[field]),
      getRuleDefaultValue: (rule) =>
        getRuleDefaultValue(rule, {
          fieldData: fieldMap[rule.field] ?? {},
          fields,
          getValueEditorType: (field, operator, {fieldData}) =>
            resolveValueEditorType({field, operator, fieldData}),
          getValues: (field, operator, {fieldData}) =>
            resolveValueList({field, operator, fieldData, autoSelectOption: true}),
        }),
    };
    this.createRule = () => createRule({fields, ...rules});
    this.actions = createQueryActions({
      combinators,
      queryDisabled: false,
      disabledPaths: [],
      resetOnFieldChange: true,
      resetOnOperatorChange: false,
      ...rules,
    });
    this.query = prepareRuleGroup({combinator: 'and', rules: []});
  }

  add({field, operator, value}) {
    const change = (next) => {
      if (!next) throw new Error(`${QueryBuilder.package} refused a step`);
      this.query = next;
    };
    const path = [this.query.rules.length];
    change(this.actions.addRule(this.query, this.createRule(), []));
    change(this.actions.propChange(this.query, 'field', field, path));
    change(
      this.actions.propChange(
        this.query,
        'operator',
        QueryBuilder.operatorNames[operator] ?? operator,
        path,
      ),
    );
    // An input gives its text, of a number too.
    change(this.actions.propChange(this.query, 'value', String(value), path));
  }

  text() {
    return formatQuery(this.query, {format: 'sql', parseNumbers: true});
  }
}

// Its form keeps the tree in a store with this reducer and gives every action the extended
// configuration.
class AwesomeQueryBuilder {
  static package = '@react-awesome-query-builder/core';
  static operatorNames = {
    '=': 'equal',
    '<>': 'not_equal',
    '<': 'less',
    '<=': 'less_or_equal',
    '>': 'greater',
    '>=': 'greater_or_equal',
  };

  constructor() {
    const subfields = {};
    for (let i = 0; i < kFields; ++i)
      subfields[fieldName(i)] = {label: fieldName(i), type: 'number'};
    const fields = {[kTable]: {label: kTable, type: '!struct', subfields}};
    this.config = Utils.ConfigUtils.extendConfig({...CoreConfig, fields}, 1);
    const root = Utils.loadTree({
      id: Utils.uuid(),
      type: 'group',
      children1: [],
      properties: {conjunction: 'AND'},
    });
    this.path = [root.get('id')];
    this.reduce = TreeStore(this.config, root);
    this.state = this.reduce(undefined, {type: 'start'});
  }

  add({field, operator, value}) {
    const {tree, rule} = TreeActions;
    const dispatch = (action) => (this.state = this.reduce(this.state, action));
    const added = tree.addRule(this.config, this.path);
    const path = [...this.path, added.id];
    dispatch(added);
    dispatch(rule.setField(this.config, path, field));
    dispatch(rule.setOperator(this.config, path, AwesomeQueryBuilder.operatorNames[operator]));
    dispatch(rule.setValue(this.config, path, 0, value, 'number'));
  }

  text() {
    return Utils.sqlFormat(this.state.tree, this.config);
  }
}

// Throws unless the text is these conditions, all of them and in this order, whichever way the
// package writes "and", "not equal" and the parentheses around the whole.
function checkText(name, text, conditions) {
  const found = String(text)
    .replace(/^\((.*)\)$/s, '$1')
    .split(/ and /i)
    .map((condition) => condition.replace(' != ', ' <> '));
  const expected = conditions.map(({field, operator, value}) => `${field} ${operator} ${value}`);
  if (found.length !== expected.length) {
    throw new Error(
      `${name}: the text has ${found.length} conditions instead of ${expected.length}`,
    );
  }
  const wrong = found.findIndex((condition, i) => condition !== expected[i]);
  if (wrong >= 0)
    throw new Error(
      `${name}: condition ${wrong} is "${found[wrong]}" instead of "${expected[wrong]}"`,
    );
}

function microseconds(work) {
  const start = process.hrtime.bigint();
  work();
  return Number(process.hrtime.bigint() - start) / 1000;
}

function median(values) {
  const sorted = [...values].sort((a, b) => a - b);
  const middle = sorted.length >> 1;
  return sorted.length % 2 ? sorted[middle] : (sorted[middle - 1] + sorted[middle]) / 2;
}

const rounded = (value, digits) => Number(value.toFixed(digits));

function measure(Builder) {
  const conditions = makeConditions(kConditions);
  const warm = new Builder();
  for (const condition of conditions.slice(0, kWarmUp)) {
    warm.add(condition);
    warm.text();
  }
  checkText(Builder.package, warm.text(), conditions.slice(0, kWarmUp));

  // A live preview makes the text anew after each addition. As a text leaves the state as it was,
  // timing one at every twentieth addition tells the same median as timing them all.
  const builder = new Builder();
  const additions = [];
  const previews = [];
  for (const condition of conditions) {
    const addition = microseconds(() => builder.add(condition));
    additions.push(addition);
    if (additions.length % kPreviewEvery === 0)
      previews.push(addition + microseconds(() => builder.text()));
  }
  const texts = Array.from({length: kTexts}, () => microseconds(() => builder.text()));
  const text = builder.text();
  checkText(Builder.package, text, conditions);

  return {
    package: Builder.package,
    version: require(`${Builder.package}/package.json`).version,
    add_median_us: rounded(median(additions), 1),
    add_first_hundred_median_us: rounded(median(additions.slice(0, 100)), 1),
    add_total_ms: rounded(additions.reduce((sum, each) => sum + each, 0) / 1000, 1),
    text_ms: rounded(median(texts) / 1000, 3),
    text_characters: text.length,
    add_with_text_median_us: rounded(median(previews), 1),
  };
}

// An if within an if, a hundred deep, and the text for them: each block is made, gets its condition
// and goes into the one before, as a drop of it does.
function nest(depth) {
  const workspace = new Blockly.Workspace();
  let outer = null;
  for (let i = 0; i < depth; ++i) {
    const block = workspace.newBlock('controls_if');
    const condition = workspace.newBlock('variables_get');
    block.getInput('IF0').connection.connect(condition.outputConnection);
    outer?.getInput('DO0').connection.connect(block.previousConnection);
    outer = block;
  }
  const text = javascriptGenerator.workspaceToCode(workspace);
  workspace.dispose();
  return text;
}

function measureNesting() {
  const kDepth = 100;
  const kRuns = 15;
  const found = nest(kDepth).match(/if \(item\)/g)?.length;
  if (found !== kDepth) throw new Error(`blockly: the text has ${found} ifs instead of ${kDepth}`);
  const times = Array.from({length: kRuns}, () => microseconds(() => nest(kDepth)));
  return {
    package: 'blockly',
    version: Blockly.VERSION,
    nested_ms: rounded(median(times) / 1000, 3),
  };
}

console.log(JSON.stringify(measureNesting()));
for (const Builder of [QueryBuilder, AwesomeQueryBuilder])
  console.log(JSON.stringify(measure(Builder)));
