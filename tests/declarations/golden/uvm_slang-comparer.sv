// Types of a type file, declared in SystemVerilog (IEEE 1800-2017). A type file has no signs,
// no bounds of queues, and of a class no methods, constraints and parameters. A name that is
// taken, or missing, has the id of its type at the end.

package uvm_pkg;
    class uvm_void;
    endclass
    class uvm_object extends uvm_void;
        static bit use_uvm_seeding;
        string m_leaf_name;
        int m_inst_id;
        static int m_inst_count;
    endclass
    typedef class uvm_object_wrapper;
    class uvm_policy extends uvm_object;
        uvm_object m_extensions [uvm_object_wrapper];
        uvm_object m_policy_stack [$];
    endclass
    typedef enum int {
        NEVER = 32'h00000000,
        STARTED = 32'h00000001,
        FINISHED = 32'h00000002
    } \uvm_policy::recursion_state_e ;
    typedef struct {
        \uvm_policy::recursion_state_e state;
        bit ret_val;
    } \uvm_comparer::state_info_t ;
    typedef bit [27:0] uvm_field_flag_t;
    typedef enum uvm_field_flag_t {
        UVM_DEFAULT_POLICY = 28'h0000000,
        UVM_DEEP = 28'h0010000,
        UVM_SHALLOW = 28'h0020000,
        UVM_REFERENCE = 28'h0040000
    } uvm_recursion_policy_enum;
    typedef enum bit [1:0] {
        UVM_INFO = 2'h0,
        UVM_WARNING = 2'h1,
        UVM_ERROR = 2'h2,
        UVM_FATAL = 2'h3
    } uvm_severity;
    class uvm_comparer extends uvm_policy;
        bit physical;
        bit abstract;
        \uvm_comparer::state_info_t m_recur_states [uvm_object][uvm_object][uvm_recursion_policy_enum];
        uvm_recursion_policy_enum policy;
        int show_max;
        int verbosity;
        uvm_severity sev;
        string miscompares;
        bit check_type;
        int result;
        int m_threshold;
        string m_object_names [$];
        int depth;
        bit compare_map [uvm_object][uvm_object];
    endclass
    class uvm_object_wrapper extends uvm_void;
    endclass
endpackage
