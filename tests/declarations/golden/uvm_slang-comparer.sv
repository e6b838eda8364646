// Types of a type file, declared in SystemVerilog (IEEE 1800-2017). A type file has no signs,
// no bounds of queues, and of a class no methods, constraints and parameters. A name that is
// taken, or missing, has the id of its type at the end.
package types;
    // type 61: class "uvm_pkg::uvm_void"
    class \uvm_pkg::uvm_void ;
    endclass
    // type 8: sequential enumeration "bit": predefined
    // type 4: string "string": predefined
    // type 0: packed array "int": predefined
    // type 66: class "uvm_pkg::uvm_object"
    class \uvm_pkg::uvm_object extends \uvm_pkg::uvm_void ;
        bit use_uvm_seeding; // flagged
        string m_leaf_name;
        int m_inst_id;
        int m_inst_count; // flagged
    endclass
    typedef class \uvm_pkg::uvm_object_wrapper ;
    // type 67: associative array ""
    typedef \uvm_pkg::uvm_object type_67 [\uvm_pkg::uvm_object_wrapper ];
    // type 68: queue ""
    typedef \uvm_pkg::uvm_object type_68 [$];
    // type 65: class "uvm_pkg::uvm_policy"
    class \uvm_pkg::uvm_policy extends \uvm_pkg::uvm_object ;
        \uvm_pkg::uvm_object m_extensions [\uvm_pkg::uvm_object_wrapper ];
        \uvm_pkg::uvm_object m_policy_stack [$];
    endclass
    // type 70: discrete enumeration "uvm_pkg::uvm_policy::recursion_state_e"
    typedef enum int {
        NEVER = 32'h00000000,
        STARTED = 32'h00000001,
        FINISHED = 32'h00000002
    } \uvm_pkg::uvm_policy::recursion_state_e ;
    // type 71: typedef "uvm_pkg::uvm_policy::recursion_state_e": declared as type 70
    // type 87: unpacked struct "uvm_pkg::uvm_comparer::state_info_t"
    typedef struct {
        \uvm_pkg::uvm_policy::recursion_state_e state;
        bit ret_val;
    } \uvm_pkg::uvm_comparer::state_info_t ;
    // type 88: typedef "uvm_pkg::uvm_comparer::state_info_t": declared as type 87
    // type 17: packed array ""
    typedef bit [27:0] type_17;
    // type 18: typedef "uvm_pkg::uvm_field_flag_t"
    typedef bit [27:0] \uvm_pkg::uvm_field_flag_t ;
    // type 22: discrete enumeration "uvm_pkg::uvm_recursion_policy_enum"
    typedef enum \uvm_pkg::uvm_field_flag_t {
        UVM_DEFAULT_POLICY = 28'h0000000,
        UVM_DEEP = 28'h0010000,
        UVM_SHALLOW = 28'h0020000,
        UVM_REFERENCE = 28'h0040000
    } \uvm_pkg::uvm_recursion_policy_enum ;
    // type 23: typedef "uvm_pkg::uvm_recursion_policy_enum": declared as type 22
    // type 89: associative array ""
    typedef \uvm_pkg::uvm_comparer::state_info_t type_89 [\uvm_pkg::uvm_recursion_policy_enum ];
    // type 90: associative array ""
    typedef \uvm_pkg::uvm_comparer::state_info_t type_90 [\uvm_pkg::uvm_object ][\uvm_pkg::uvm_recursion_policy_enum ];
    // type 91: associative array ""
    typedef \uvm_pkg::uvm_comparer::state_info_t type_91 [\uvm_pkg::uvm_object ][\uvm_pkg::uvm_object ][\uvm_pkg::uvm_recursion_policy_enum ];
    // type 92: packed array "int": predefined
    // type 27: packed array ""
    typedef bit [1:0] type_27;
    // type 28: discrete enumeration "uvm_pkg::uvm_severity"
    typedef enum bit [1:0] {
        UVM_INFO = 2'h0,
        UVM_WARNING = 2'h1,
        UVM_ERROR = 2'h2,
        UVM_FATAL = 2'h3
    } \uvm_pkg::uvm_severity ;
    // type 29: typedef "uvm_pkg::uvm_severity": declared as type 28
    // type 93: queue ""
    typedef string type_93 [$];
    // type 94: associative array ""
    typedef bit type_94 [\uvm_pkg::uvm_object ];
    // type 95: associative array ""
    typedef bit type_95 [\uvm_pkg::uvm_object ][\uvm_pkg::uvm_object ];
    // type 86: class "uvm_pkg::uvm_comparer"
    class \uvm_pkg::uvm_comparer extends \uvm_pkg::uvm_policy ;
        bit physical;
        bit abstract;
        \uvm_pkg::uvm_comparer::state_info_t m_recur_states [\uvm_pkg::uvm_object ][\uvm_pkg::uvm_object ][\uvm_pkg::uvm_recursion_policy_enum ];
        \uvm_pkg::uvm_recursion_policy_enum policy;
        int show_max;
        int verbosity;
        \uvm_pkg::uvm_severity sev;
        string miscompares;
        bit check_type;
        int result;
        int m_threshold;
        string m_object_names [$];
        int depth;
        bit compare_map [\uvm_pkg::uvm_object ][\uvm_pkg::uvm_object ];
    endclass
    // type 60: class "uvm_pkg::uvm_object_wrapper"
    class \uvm_pkg::uvm_object_wrapper extends \uvm_pkg::uvm_void ;
    endclass
endpackage
