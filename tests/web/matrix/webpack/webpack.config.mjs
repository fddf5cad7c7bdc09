// webpack takes the element as it is: no rule, no plugin.
import path from 'node:path';

export default {
  mode: 'production',
  entry: './main.js',
  output: {path: path.resolve('dist'), filename: 'main.js'},
};
